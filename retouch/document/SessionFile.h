#pragma once

#include <cstdint>
#include <QByteArray>
#include <string>

// The records of the file that a session is written down in: each is a head and what it says, with a checksum, so that
// a file that was cut off or damaged is read as far as it is good. Numbers have the machine's own order: such a file
// never leaves it.

constexpr char SESSION_MAGIC[] = "retouch session 2\n";

/// What a record says, as QDataStream writes it; a tile is where it is in the file (TilePlace), and which of its picture.
enum class SessionRecord : std::uint32_t
{
    Photo = 1, ///< What the work began with: path, size and checksum of its file.
    Tiles,     ///< LZ4 blocks; each tile has a checksum of its own.
    Opened,    ///< Width and height of the photo as it was opened, and all of its tiles.
    State,     ///< A state of the history: what is other than in the state before, by the numbers of both.
    List,      ///< The states there are, and which is the current one; whether there is anything to recover.
};

/// The photo that the work of a session began with.
struct SessionPhoto
{
    std::string strPath;     ///< Where it is saved to; empty for the sample picture.
    std::int64_t nBytes = 0; ///< Of its file.
    std::uint64_t uChecksum = 0;
    bool bWhole = false; ///< All pixels come along: its file is not what the work began with.
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

/// Whether a record's checksum counts: tiles are looked at when they are needed.
bool IsChecked(const SessionHead& head);

/// A record as it is written.
QByteArray RecordOf(SessionRecord record, const QByteArray& says);

/// How much of it comes before what it says.
constexpr std::size_t HEAD_BYTES = sizeof(SessionHead);

/// The size and checksum of a file; 0 and 0 for one that cannot be read.
void IdentifyFile(SessionPhoto& photo);
