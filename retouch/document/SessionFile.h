#pragma once

#include <cstdint>
#include <QByteArray>
#include <string>

// The records of the file that a session is written down in: each is a head and what it says, with a checksum, so that
// a file that was cut off or damaged is read as far as it is good. Numbers have the machine's own order: such a file
// never leaves it.

constexpr char SESSION_MAGIC[] = "retouch session 1\n";

/// What a record says, as QDataStream writes it.
enum class SessionRecord : std::uint32_t
{
    Photo =
        1,  ///< What the work began with: path, size and checksum of its file, and whether tiles follow for all of it.
    Size,   ///< Width and height of the photo from here on, and whether all of it follows.
    Pixels, ///< Tiles of the photo: number and LZ4 block each.
    Mask,   ///< The same of the selection's weights; the first of a step says whether anything is selected.
    Step,   ///< All of a step has come: its name.
};

/// The photo that the work of a session began with.
struct SessionPhoto
{
    std::string strPath;     ///< Where it is saved to; empty for the sample picture.
    std::int64_t nBytes = 0; ///< Of its file.
    std::uint64_t uChecksum = 0;
    bool bWhole = false; ///< All pixels follow: its file is not what the work began with.
};

/// What comes before what a record says.
struct SessionHead
{
    std::uint32_t uMagic;
    std::uint32_t uRecord;
    std::uint64_t nBytes;
    std::uint64_t uChecksum;
};

/// Whether it can be one, and whether that is what it announced.
bool IsGoodHead(const SessionHead& head);
bool IsWhole(const SessionHead& head, const QByteArray& says);

/// A record as it is written.
QByteArray RecordOf(SessionRecord record, const QByteArray& says);

/// The size and checksum of a file; 0 and 0 for one that cannot be read.
void IdentifyFile(SessionPhoto& photo);
