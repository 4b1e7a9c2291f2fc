#include "document/SessionFile.h"

#include <array>
#include <cstring>
#include <fstream>
#include <memory>
#include <xxhash.h>

namespace
{

constexpr std::uint32_t HEAD_MAGIC = 0x52435353;

} // namespace

QByteArray RecordOf(SessionRecord record, const QByteArray& says)
{
    const bool bTiles = record == SessionRecord::Tiles;
    const SessionHead head = {HEAD_MAGIC, static_cast<std::uint32_t>(record), static_cast<std::uint64_t>(says.size()),
                              bTiles ? 0 : XXH3_64bits(says.constData(), static_cast<std::size_t>(says.size()))};
    QByteArray bytes(reinterpret_cast<const char*>(&head), sizeof(head));
    return bytes += says;
}

bool IsGoodHead(const SessionHead& head)
{
    constexpr std::uint64_t MOST = std::uint64_t{512} << 20; // A selection of noise has millions of rectangles.
    return head.uMagic == HEAD_MAGIC && head.nBytes <= MOST;
}

bool IsChecked(const SessionHead& head) { return head.uRecord != static_cast<std::uint32_t>(SessionRecord::Tiles); }

bool IsWhole(const SessionHead& head, const QByteArray& says)
{
    return static_cast<std::uint64_t>(says.size()) == head.nBytes &&
           XXH3_64bits(says.constData(), static_cast<std::size_t>(says.size())) == head.uChecksum;
}

void IdentifyFile(SessionPhoto& photo)
{
    photo.nBytes = 0;
    photo.uChecksum = 0;
    std::ifstream file(photo.strPath, std::ios::binary);
    if (!file)
        return;
    const std::unique_ptr<XXH3_state_t, decltype(&XXH3_freeState)> pState(XXH3_createState(), &XXH3_freeState);
    XXH3_64bits_reset(pState.get());
    std::array<char, 1 << 16> aPart;
    while (file.read(aPart.data(), aPart.size()) || file.gcount() > 0)
    {
        XXH3_64bits_update(pState.get(), aPart.data(), static_cast<std::size_t>(file.gcount()));
        photo.nBytes += file.gcount();
    }
    photo.uChecksum = XXH3_64bits_digest(pState.get());
}
