#pragma once

#include "mfc/Array.h"
#include "mfc/DC.h"
#include "mfc/Exception.h"
#include "mfc/GdiObject.h"
#include "mfc/Geometry.h"
#include "mfc/Module.h"
#include "mfc/Object.h"
#include "mfc/ScrollBar.h"
#include "mfc/String.h"
#include "mfc/Thread.h"
#include "mfc/WaitCursor.h"
#include "mfc/Wnd.h"
