#pragma once

#include "base/Types.h"

#include <memory>
#include <optional>

namespace winlite
{

/// Asks the window system where the pointer is now, past the toolkit's event queue. Any thread.
class LivePointer
{
public:
    struct State
    {
        POINT ptScreen; ///< Device pixels.
        bool bLeftDown;
    };

    LivePointer();
    ~LivePointer();

    /// Nothing where the window system cannot be asked.
    std::optional<State> Query();

private:
    struct Connection;
    std::unique_ptr<Connection> m_pConnection;
};

/// Whether an X server answers, before there is any toolkit. FALSE where this was built without X11.
bool X11Answers();

} // namespace winlite
