#include "tools/SpotRemover.h"
#include "support/ToolTest.h"

using SpotRemoverTest = CToolTest<Pixtane::EmbeddedTool::SpotRemover>;

TEST_F(SpotRemoverTest, AnOutlineOfTheSpotFollowsThePointer)
{
    using Rows = std::vector<std::string>;
    const Rows CIRCLE = {"..oooo..", ".o.##.o.", "o.#..#.o", "o#....#o",
                         "o#....#o", "o.#..#.o", ".o.##.o.", "..oooo.."};
    const Rows SQUARE = {"ooooooo", "o#####o", "o#...#o", "o#...#o", "o#...#o", "o#####o", "ooooooo"};
    const struct
    {
        double dbZoom;
        int iSize;
        CPoint ptMouse, ptDrawn;
        Rows vDrawn; ///< '#' black, 'o' white.
    } CASES[] = {
        {1, 5, {100, 90}, {97, 87}, CIRCLE},
        {5, 1, {103, 88}, {99, 84}, CIRCLE}, // anywhere in the bitmap pixel
        {0.25, 15, {150, 100}, {147, 97}, SQUARE},
        {2, ::GetSystemMetrics(SM_CYVIRTUALSCREEN) / 2, {100, 90}, {0, 0}, {}},
    };
    for (const auto& [dbZoom, iSize, ptMouse, ptDrawn, vDrawn] : CASES)
    {
        pView->SetZoom(dbZoom);
        pView->SetDispPosition(50, 50);
        pView->UnloadEmbeddedTool();
        const winlite::Picture before = Screen();
        pView->LoadEmbeddedTool(tool);
        tool.SetSize(iSize);
        user->Move({10, 10});
        user->Move(ptMouse);
        ExpectDrawn(before,
                    [&](CPoint pt) -> std::optional<std::uint32_t>
                    {
                        const CSize sz = pt - ptDrawn;
                        const int iSide = static_cast<int>(vDrawn.size());
                        const bool bInside = sz.cx >= 0 && sz.cx < iSide && sz.cy >= 0 && sz.cy < iSide;
                        const char cDrawn = bInside ? vDrawn[sz.cy][sz.cx] : '.';
                        return cDrawn == '.' ? std::nullopt : std::optional(cDrawn == '#' ? 0u : 0xFFFFFFu);
                    });
    }
}

TEST_F(SpotRemoverTest, EachReleaseTellsASpotAndADoubleClickOne)
{
    EXPECT_EQ(tool.GetSpotPos().x, -1);
    pView->SetZoom(2);
    pView->SetDispPosition(0, 0);
    user->Move({10, 10});
    EXPECT_EQ(::GetCursor(), nullptr) << "15 pixels, shown by 30";
    user->Click({30, 40});
    user->Click({30, 40}); // makes it a double click
    EXPECT_EQ(CPoint(decltype(tool)(tool).GetSpotPos()), CPoint(15, 20));
    EXPECT_EQ(Told(), "SPOTREMOVER_SPOT ");
    pView->SetZoom(0.5);
    user->Click({10, 190});
    EXPECT_EQ(CPoint(tool.GetSpotPos()), CPoint(-80, 330)) << "beside the image";
    tool.SetSize(65);
    user->Move({20, 20});
    EXPECT_EQ(::GetCursor(), pView->GetDefCursor());
    pView->UnloadEmbeddedTool();
    tool.SetSize(32);
    pView->SetZoom(2);
    pView->LoadEmbeddedTool(tool);
    user->Move({21, 20});
    EXPECT_EQ(::GetCursor(), nullptr) << "without a view, and until the next zoom, sizes are those of zoom 1";
}

TEST_F(SpotRemoverTest, TheSizeIsLimitedWhenItIsRestored)
{
    const std::string strRefused = "SpotRemover::UnserializeToolSettings: Invalid parameter data size ";
    const std::tuple<std::vector<BYTE>, std::string, int> CASES[] = {
        {{1, 0, 0, 0, 0xE8, 3, 0, 0}, "", 500},
        {{1, 0, 0, 0, 0, 0, 0, 0}, "", 1},
        {{0, 0, 0, 0, 77}, "", 500},
        {{1, 0, 0, 0, 20, 0, 0, 0, 0}, strRefused + "for version 1.", 1000},
        {{}, strRefused + "or version.", 1000}};
    for (const auto& [vBlob, strLogged, iSize] : CASES)
    {
        tool.SetSize(1000);
        EXPECT_EQ(Restore(vBlob), strLogged);
        EXPECT_EQ(tool.SetSize(20), iSize) << &vBlob - &std::get<0>(CASES[0]);
    }
    std::vector<BYTE> vKept;
    tool.SerializeToolSettings(vKept);
    EXPECT_EQ(vKept, (std::vector<BYTE>{1, 0, 0, 0, 20, 0, 0, 0}));
}
