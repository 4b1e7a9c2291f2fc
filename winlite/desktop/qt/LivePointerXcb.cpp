#include "qtdesktop/LivePointer.h"

#include <cstdlib>
#include <mutex>
#include <QGuiApplication>
#include <xcb/xcb.h>

namespace winlite
{

/// A connection of its own: Qt's must not be read while Qt waits on it in another place.
struct LivePointer::Connection
{
    Connection() : pConnection(xcb_connect(nullptr, &iScreen)) {}
    ~Connection() { xcb_disconnect(pConnection); }

    xcb_window_t Root() const
    {
        xcb_screen_iterator_t it = xcb_setup_roots_iterator(xcb_get_setup(pConnection));
        for (int i = 0; i < iScreen && it.rem > 1; ++i)
            xcb_screen_next(&it);
        return it.data->root;
    }

    std::mutex mutex;
    int iScreen = 0;
    xcb_connection_t* pConnection;
};

LivePointer::LivePointer()
{
    if (QGuiApplication::platformName() != "xcb")
        return;
    m_pConnection = std::make_unique<Connection>();
    if (xcb_connection_has_error(m_pConnection->pConnection))
        m_pConnection.reset();
}

LivePointer::~LivePointer() = default;

std::optional<LivePointer::State> LivePointer::Query()
{
    if (!m_pConnection)
        return std::nullopt;
    const std::scoped_lock lock(m_pConnection->mutex);
    xcb_connection_t* const pConnection = m_pConnection->pConnection;
    if (xcb_connection_has_error(pConnection))
        return std::nullopt;
    const xcb_query_pointer_cookie_t cookie = xcb_query_pointer(pConnection, m_pConnection->Root());
    const std::unique_ptr<xcb_query_pointer_reply_t, decltype(&std::free)> pReply(
        xcb_query_pointer_reply(pConnection, cookie, nullptr), &std::free);
    if (!pReply || !pReply->same_screen)
        return std::nullopt;
    return State{{pReply->root_x, pReply->root_y}, (pReply->mask & XCB_KEY_BUT_MASK_BUTTON_1) != 0};
}

bool X11Answers()
{
    xcb_connection_t* const pConnection = xcb_connect(nullptr, nullptr);
    const bool bAnswers = !xcb_connection_has_error(pConnection);
    xcb_disconnect(pConnection);
    return bAnswers;
}

} // namespace winlite
