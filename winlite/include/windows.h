#pragma once

#include "gdi/Gdi.h"
#include "user/User.h"
