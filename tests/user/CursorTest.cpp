#include "user/Cursor.h"
#include "base/Module.h"
#include "gdi/Handles.h"
#include "user/User.h"

#include <gtest/gtest.h>

namespace
{

using Bytes = std::vector<BYTE>;

void Append(Bytes& vBytes, std::uint64_t uValue, int nBytes)
{
    for (int i = 0; i < nBytes; ++i)
        vBytes.push_back(static_cast<BYTE>(uValue >> 8 * i));
}

/// A cursor file with one 2 x 2 image whose colours are given from the file's first (lower) row on. The mask leaves out
/// the lower left pixel.
Bytes CursorFile(const Bytes& vColours)
{
    const Bytes vMask = {0x80, 0, 0, 0, 0, 0, 0, 0};
    Bytes vFile = {0, 0, 2, 0, 1, 0, 2, 2, 0, 0, 1, 0, 0, 0};
    Append(vFile, 40 + vColours.size() + vMask.size(), 4);
    Append(vFile, 22, 4);
    for (const std::uint64_t uField : {40, 2, 4})
        Append(vFile, uField, 4);
    Append(vFile, 1, 2);
    Append(vFile, 32, 2);
    vFile.resize(vFile.size() + 24);
    vFile.insert(vFile.end(), vColours.begin(), vColours.end());
    vFile.insert(vFile.end(), vMask.begin(), vMask.end());
    return vFile;
}

/// Lower row red (half transparent) and nothing, upper row green and blue.
Bytes AlphaFile() { return CursorFile({0, 0, 255, 128, 0, 0, 0, 0, 0, 255, 0, 255, 255, 0, 0, 255}); }

Bytes With(Bytes vBytes, std::size_t iOffset, std::initializer_list<BYTE> vNew)
{
    for (const BYTE b : vNew)
        vBytes.at(iOffset++) = b;
    return vBytes;
}

} // namespace

TEST(CursorTest, TheMaskCountsWhereNoPixelHasAlpha)
{
    const std::pair<Bytes, std::vector<std::uint32_t>> vCases[] = {
        {AlphaFile(), {0xFF00FF00, 0xFF0000FF, 0x80FF0000, 0}},
        {CursorFile(Bytes(16, 0)), {0xFF000000, 0xFF000000, 0, 0xFF000000}},
        {CursorFile({9, 0, 0, 0, 0, 0, 9, 0, 0, 0, 0, 0, 0, 0, 0, 0}), // the first would invert, which is shown black
         {0xFF000000, 0xFF000000, 0xFF000000, 0xFF090000}},
    };
    for (const auto& [vFile, vPixels] : vCases)
    {
        const auto pCursor = winlite::ReadCursorFile(vFile);
        ASSERT_TRUE(pCursor);
        EXPECT_EQ(pCursor->vPixels, vPixels);
        EXPECT_EQ(pCursor->ptHotSpot.x, 1);
        for (std::size_t n = 0; n < vFile.size(); ++n)
            EXPECT_FALSE(winlite::ReadCursorFile(std::span(vFile).first(n))) << "cut to " << n;
    }
}

TEST(CursorTest, BrokenFilesAreRefused)
{
    const std::pair<const char*, Bytes> vFiles[] = {
        {"an icon", With(AlphaFile(), 2, {1})},
        {"no image", With(AlphaFile(), 4, {0, 0})},
        {"more images than there are", With(AlphaFile(), 4, {255, 255})},
        {"hot spot outside", With(AlphaFile(), 10, {2})},
        {"an image shorter than it is", With(AlphaFile(), 14, {63})},
        {"an image longer than the file", With(AlphaFile(), 14, {255, 255, 255, 255})},
        {"an offset beyond the file", With(AlphaFile(), 18, {255, 255, 255, 255})},
        {"an offset into the picture", With(AlphaFile(), 18, {30})},
        {"a small header", With(AlphaFile(), 22, {12})},
        {"a huge width", With(AlphaFile(), 26, {255, 255, 255, 127})},
        {"an odd height", With(AlphaFile(), 30, {3})},
        {"a top-down picture", With(AlphaFile(), 30, {252, 255, 255, 255})},
        {"16 bits", With(AlphaFile(), 36, {16})},
        {"compression", With(AlphaFile(), 38, {1})},
        {"a table", With(AlphaFile(), 36, {8})},
    };
    for (const auto& [pszWhat, vFile] : vFiles)
        EXPECT_FALSE(winlite::ReadCursorFile(vFile)) << pszWhat;
}

TEST(CursorTest, TheImageOf32PixelsIsTaken)
{
    Bytes vFile = AlphaFile();
    Bytes vEntry(vFile.begin() + 6, vFile.begin() + 22);
    const Bytes vImage(vFile.begin() + 22, vFile.end());
    vFile = With(vFile, 4, {2});
    vFile = With(vFile, 18, {38});
    vEntry = With(vEntry, 0, {32, 32, 0, 0, 0, 0, 1, 0});
    vEntry = With(vEntry, 12, {static_cast<BYTE>(38 + vImage.size())});
    vFile.insert(vFile.begin() + 22, vEntry.begin(), vEntry.end());
    vFile.insert(vFile.end(), vImage.begin(), vImage.end());
    EXPECT_EQ(winlite::ReadCursorFile(vFile)->ptHotSpot.y, 1);
    EXPECT_EQ(winlite::ReadCursorFile(With(vFile, 22, {31}))->ptHotSpot.y, 0) << "else the first";
}

TEST(CursorTest, ResourcesAreFoundByModuleAndNumber)
{
    static const Bytes s_vCursor = AlphaFile();
    static const Bytes s_vBroken = {0, 0, 2, 0};
    static const winlite::Resource s_vResources[] = {{12, 5, s_vCursor}, {12, 6, s_vBroken}};
    static const winlite::Module s_module = {L"resources", nullptr, s_vResources};
    static const winlite::ModuleRegistration s_registration(s_module);
    const HINSTANCE hModule = winlite::InstanceOf(s_module);
    const std::size_t nHandles = winlite::OpenHandleCount();
    const HCURSOR hCursor = ::LoadCursor(hModule, MAKEINTRESOURCE(5));
    ASSERT_TRUE(hCursor);
    EXPECT_EQ(::LoadCursor(hModule, MAKEINTRESOURCE(5)), hCursor);
    EXPECT_EQ(winlite::FindTyped<winlite::CursorObject>(hCursor)->cx, 2);
    for (const auto& [pszId, iId] : {std::pair(IDC_ARROW, 32512), {IDC_HAND, 32649}})
        EXPECT_EQ(winlite::FindTyped<winlite::CursorObject>(::LoadCursor(nullptr, pszId))->iSystemId, iId);
    for (const auto& [hInstance, uId] : {std::pair(hModule, 6), {hModule, 7}, {HINSTANCE{}, 5}, {HINSTANCE{}, 32600}})
        EXPECT_FALSE(::LoadCursor(hInstance, MAKEINTRESOURCE(static_cast<UINT_PTR>(uId)))) << uId;
    EXPECT_FALSE(::LoadCursor(hModule, L"name"));
    EXPECT_EQ(winlite::OpenHandleCount(), nHandles) << "shared cursors are not counted";
}
