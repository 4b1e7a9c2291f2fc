#pragma once

#include "mfc/Module.h"
