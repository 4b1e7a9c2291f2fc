#include "brushes/PenFile.h"

#include "platform/minmax.h"
#include "view/OutOfMemory.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace Pixtane
{

using EmbeddedTool::Sketcher;

namespace
{

static_assert(std::endian::native == std::endian::little, "The numbers of pen files are read as they are.");

constexpr char MAGIC[] = {'S', 'K', 'P', 'N'};
constexpr int MOST_PEN_SIZE = 0x7FFF; ///< The weights of a larger pen have 2^32 bytes or more.
constexpr std::size_t WEIGHTS_AT_ONCE = 4096;

/// How a pen begins in the file.
struct PenHeader
{
    int iStyle;
    int iSize;
    int xCenter;
    int yCenter;
};

bool ReadWhole(CFile& file, void* pBytes, std::size_t nBytes)
try
{
    return file.Read(pBytes, static_cast<UINT>(nBytes)) == nBytes;
}
catch (CFileException* pException)
{
    pException->Delete();
    return false;
}

/// Takes memory only as weights arrive: the file may promise more than it has.
bool ReadWeights(CFile& file, int iSize, std::vector<int>& vWeights)
{
    std::array<int, WEIGHTS_AT_ONCE> part;
    std::size_t nLeft = static_cast<std::size_t>(iSize) * static_cast<std::size_t>(iSize);
    while (nLeft > 0)
    {
        const std::size_t nPart = std::min(nLeft, part.size());
        if (!ReadWhole(file, part.data(), nPart * sizeof(int)))
            return false;
        vWeights.insert(vWeights.end(), part.data(), part.data() + nPart);
        nLeft -= nPart;
    }
    return true;
}

bool ReadPen(CFile& file, Sketcher::SketchPen& pen)
{
    PenHeader header;
    if (!ReadWhole(file, &header, sizeof(header)) || header.iSize < 1 || header.iSize > MOST_PEN_SIZE)
        return false;
    pen.eStyle = static_cast<Sketcher::SketchPen::emStyle>(header.iStyle);
    pen.iSize = header.iSize;
    pen.ptCenter = CPoint(header.xCenter, header.yCenter);
    return ReadWeights(file, header.iSize, pen.vMask);
}

} // namespace

bool ReadPenMagic(CFile& file)
{
    char szMagic[sizeof(MAGIC)];
    return ReadWhole(file, szMagic, sizeof(szMagic)) && std::memcmp(szMagic, MAGIC, sizeof(MAGIC)) == 0;
}

std::optional<DWORD> ReadPenCount(CFile& file)
{
    DWORD dwDeclared = 0;
    return ReadWhole(file, &dwDeclared, sizeof(dwDeclared)) ? std::optional(dwDeclared) : std::nullopt;
}

int AppendPens(CFile& file, DWORD dwDeclared, std::vector<Sketcher::SketchPen>& vPens)
{
    const std::size_t nBefore = vPens.size();
    try
    {
        for (DWORD i = 0; i < dwDeclared; ++i)
        {
            Sketcher::SketchPen pen;
            if (!ReadPen(file, pen))
                break;
            vPens.push_back(std::move(pen));
        }
    }
    catch (...)
    {
        RethrowUnlessOutOfMemory();
    }
    return static_cast<int>(vPens.size() - nBefore);
}

} // namespace Pixtane
