#pragma once

#include "user/Input.h"

#include <optional>

class QKeyEvent;

namespace winlite
{

/// A key of Qt as the key of a keyboard; nothing for keys that have no code here.
std::optional<KeyEvent> KeyOf(const QKeyEvent& event, bool bDown);

} // namespace winlite
