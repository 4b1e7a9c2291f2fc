#pragma once

#include "gdi/DrawDib.h"
