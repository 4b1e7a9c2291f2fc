#include "qtdesktop/LivePointer.h"

namespace winlite
{

struct LivePointer::Connection
{
};

LivePointer::LivePointer() = default;
LivePointer::~LivePointer() = default;

std::optional<LivePointer::State> LivePointer::Query() { return std::nullopt; }

bool X11Answers() { return false; }

} // namespace winlite
