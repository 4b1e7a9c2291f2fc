#pragma once

#include "mfc/Sync.h"
