#pragma once

#include "files/Files.h"
#include "gdi/Gdi.h"
#include "user/User.h"
