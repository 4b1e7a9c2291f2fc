#pragma once

#include "mfc/Array.h"
