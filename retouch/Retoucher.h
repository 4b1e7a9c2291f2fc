#pragma once

#include "qt/ViewHost.h"
#include "retouch/Photo.h"

#include <optional>
#include <string>

/// The program without its window: the photo in a view, and everything a person can do with it as commands of one line
/// of text. Menus, keys, recorded sessions and the tour all come through Execute. User-interface thread.
class CRetoucher
{
public:
    /// The host must outlive it.
    explicit CRetoucher(CViewHost& host) : m_host(host) {}
    ~CRetoucher();

    /// Carries a command out, like "open /home/me/photo.jpg" or "zoom-in"; retouch/README.md lists them. FALSE, with a
    /// message for the person and nothing changed, when that is not possible.
    bool Execute(const std::string& strCommand, std::string& strError);

    /// The photo; NULL before the first was opened.
    CPhoto* Photo() { return m_photo ? &*m_photo : nullptr; }

    Pixtane::CPixtane& View() { return m_host.View(); }

private:
    struct Command;
    static const Command s_vCommands[];

    bool Open(const std::string& strPath, std::string& strError);
    void Show(CPhoto photo);
    void KeepOriginal();
    void AutoContrast();
    void Revert();
    void ShowOriginal(bool bShow);

    CViewHost& m_host;
    std::optional<CPhoto> m_photo;
    std::vector<BYTE> m_vOriginal; ///< The photo's pixels as they were opened; empty while nothing was changed.
};
