#pragma once

#include "document/History.h"
#include "document/Photo.h"
#include "document/SessionReader.h"

#include <functional>
#include <optional>
#include <utility>

/// A photo, its pixels as they were opened, and what it and its selection were after each step. User-interface thread,
/// but for PixelsAfter.
class CDocument
{
public:
    /// The photo; NULL before the first was opened.
    CPhoto* Photo() { return m_photo ? &*m_photo : nullptr; }

    /// The photo's file, which another one becomes by saving it there; empty for one that has none.
    const std::string& Path() const { return m_strPath; }

    /// The file it was opened from; empty for none.
    const std::string& OpenedPath() const { return m_strOpened; }

    /// How often it was written so far.
    unsigned SaveCount() const { return m_uSaves; }

    /// Whether the photo's pixels are not what its file holds, or what was opened when it has none.
    bool IsUnsaved() const { return m_photo && !m_history.IsSaved(); }

    /// The photo as it is now was written as a file, which it is from here on.
    void Saved(PhotoOrigin origin);

    /// How many photos there have been.
    unsigned PhotoCount() const { return m_uPhotos; }

    CHistory& History() { return m_history; }
    const CHistory& History() const { return m_history; }

    /// The pixels as they were opened; NULL while nothing has changed them, and while the photo has another size.
    const CTiledSnapshot* Original() const
    {
        return m_bChanged && m_original.HasSizeOf(m_history.Current().pixels) ? &m_original : nullptr;
    }

    /// The same, as far as anything has changed it, whatever size the photo has now.
    const CTiledSnapshot& Opened() const { return m_original; }

    /// Starts with another photo. Returns the old one, whose pixels a view may still show.
    std::optional<CPhoto> Replace(CPhoto photo, std::string strPath);

    /// Goes on with the work of a session that was interrupted, on the photo that was its original. Returns that one,
    /// whose pixels a view may still show.
    CPhoto Resume(RecoveredWork& work);

    /// The session that the work on the photo was recovered from; nothing for work that began with the photo.
    struct Recovery
    {
        std::shared_ptr<CLockedFile> pFile;
        bool bWhole; ///< It has all of the photo as it was opened.
    };
    const std::optional<Recovery>& RecoveredFrom() const { return m_recovery; }

    /// Is called, on any thread, before the history takes as much memory as a whole photo.
    void SetMakeRoom(std::function<void()> makeRoom) { m_MakeRoom = std::move(makeRoom); }

    /// New pixels of the photo with what the history keeps of them.
    struct Pixels
    {
        CLargeBuffer buffer;
        CTiledSnapshot::Change change;
    };

    /// What the history keeps of changed pixels. Any thread, while nothing else changes the document.
    Pixels PixelsAfter(CLargeBuffer changed);

    /// Takes new pixels over as a step; the buffer with the old ones comes back. FALSE when they are no others.
    bool Commit(Pixels& pixels, const std::string& strStep);

    /// A buffer like the photo's of which only an area, and what the history keeps along with it, is filled: pages that
    /// nobody touches cost nothing. Any thread, while nothing else changes the document.
    CLargeBuffer CopyArea(const CRect& rc);

    /// Copies the pixels of an area from a buffer like the photo's, as a step; FALSE when they are no others.
    bool CommitArea(const BYTE* pPixels, const CRect& rc, const std::string& strStep);

    /// Another photo that comes of this one (cropped, turned), with what the history keeps of both.
    struct Shaped
    {
        CPhoto photo;
        CTiledSnapshot now;
        std::vector<CTiledSnapshot::KeptTile> vBefore;
    };

    /// What the history keeps. Any thread, while nothing else changes the document.
    Shaped ShapedTo(CPhoto photo);

    /// Takes it over as a step without a selection. Returns the old photo, whose pixels a view may still show.
    CPhoto Commit(Shaped shaped, const std::string& strStep);

    /// Whether a state's photo has another size than the one there is; such a one is put back as a photo of its own,
    /// and the old one comes back.
    bool HasOtherSize(const CHistory::State& state) const;
    CPhoto RestorePhoto(const CHistory::State& state);

    /// Puts a state's pixels back; FALSE when they are there.
    bool Restore(const CHistory::State& state, const CTiledSnapshot& shown);

private:
    bool Add(const CTiledSnapshot::Change& change, const std::string& strStep);

    std::optional<CPhoto> m_photo;
    std::string m_strPath;
    std::string m_strOpened;
    unsigned m_uPhotos = 0;
    unsigned m_uSaves = 0;
    CTiledSnapshot m_original; ///< As far as anything has changed it.
    bool m_bChanged = false;
    std::optional<Recovery> m_recovery;
    std::function<void()> m_MakeRoom = [] {};
    CHistory m_history;
};
