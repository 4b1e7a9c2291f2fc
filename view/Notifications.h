#pragma once

#include "platform/framework.h"

namespace Pixtane
{

// What the view and its tools tell the view's parent: WM_NOTIFY with an NMHDR of the view's window, its control id and
// one of these codes; wParam is the view's window. All are sent, except PVN_CLONESTAMP_NOSOURCE, which is posted: its
// receiver frees the record with delete. Replies are ignored except that of PVN_EFFECTBRUSH_BEGIN.

constexpr UINT PVN_MOUSEMOVE = 1;   ///< A mouse move that the tool did not consume.
constexpr UINT PVN_LBUTTONDOWN = 2; ///< A left press that the tool did not consume.
constexpr UINT PVN_LBUTTONUP = 3;   ///< A left release that the tool did not consume.
constexpr UINT PVN_RBUTTONDOWN = 4;
constexpr UINT PVN_RBUTTONUP = 5;
constexpr UINT PVN_DISPLAYCHANGED = 6; ///< The view was laid out anew, or redrawing was unlocked.

constexpr UINT PVN_SELECT_NEW = 0x100;       ///< A shape replaced the selection.
constexpr UINT PVN_SELECT_ADD = 0x101;       ///< A shape was added to it.
constexpr UINT PVN_SELECT_SUBTRACT = 0x102;  ///< A shape was taken from it.
constexpr UINT PVN_SELECT_INTERSECT = 0x103; ///< The selection was cut down to a shape.
constexpr UINT PVN_SELECTION_CLEARED = 0x104;
constexpr UINT PVN_SELECTION_INVERTED = 0x105;
constexpr UINT PVN_SELECTION_MOVED = 0x106; ///< A moved selection was put in its place.

constexpr UINT PVN_IMAGEMOVER_BEGIN = 0x120;
constexpr UINT PVN_IMAGEMOVER_MOVING = 0x121;
constexpr UINT PVN_IMAGEMOVER_END = 0x122;

constexpr UINT PVN_CLONESTAMP_SOURCE = 0x130; ///< The source point was set, or cleared outside the bitmap.
constexpr UINT PVN_CLONESTAMP_BEGIN = 0x131;
constexpr UINT PVN_CLONESTAMP_END = 0x132;
constexpr UINT PVN_CLONESTAMP_NOSOURCE = 0x133; ///< A stroke was asked for without a source point; posted.

constexpr UINT PVN_DODGE_BEGIN = 0x140;
constexpr UINT PVN_DODGE_END = 0x141;
constexpr UINT PVN_BURN_BEGIN = 0x142;
constexpr UINT PVN_BURN_END = 0x143;

constexpr UINT PVN_SPOTREMOVER_SPOT = 0x150;  ///< A spot was chosen.
constexpr UINT PVN_REDEYE_DETECT = 0x160;     ///< A rectangle around an eye was chosen.
constexpr UINT PVN_COLORPICKER_COLOR = 0x170; ///< A colour was picked.
constexpr UINT PVN_HORILINE_DRAWN = 0x180;    ///< The horizon line was finished.

constexpr UINT PVN_SELMOD_LEFT = 0x190; ///< A drag step of the left handle; likewise the next three.
constexpr UINT PVN_SELMOD_TOP = 0x191;
constexpr UINT PVN_SELMOD_RIGHT = 0x192;
constexpr UINT PVN_SELMOD_BOTTOM = 0x193;
constexpr UINT PVN_SELMOD_SIZE = 0x194; ///< A drag step of the bottom right handle; the size was set.
constexpr UINT PVN_SELMOD_RECT =
    0x195; ///< A drag step of a move or another corner; a release that changed the rectangle.

constexpr UINT PVN_MOVABLERECT_MOVED = 0x200; ///< The rectangle moved during a drag.

constexpr UINT PVN_EFFECTBRUSH_BEGIN = 0x210; ///< Before a stroke starts; a nonzero reply cancels it.
constexpr UINT PVN_EFFECTBRUSH_END = 0x211;

} // namespace Pixtane
