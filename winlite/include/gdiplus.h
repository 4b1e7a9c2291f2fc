#pragma once

#include "gdiplus/GdiPlus.h"
