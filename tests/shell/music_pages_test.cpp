// Whole pages of music: every surface is told the same, and parts of a paint join to the whole.
#include <QPainter>
#include <QScrollBar>
#include <QTemporaryDir>
#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

#include "ViewFixture.h"
#include "graphics/MemoryPort.h"
#include "layout/Beaming.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "platform/qt/ImagePort.h"
#include "session/ScriptRunner.h"
#include "shell/ScoreExport.h"
#include "shell/ScoreView.h"
#include "shell/TileCache.h"
#include "shell/ViewScale.h"

namespace corvane {
namespace {

class MusicPages : public ViewTest, public testing::WithParamInterface<const char*> {
protected:
    MusicPages() {
        std::ifstream file(std::string(CORVANE_SOURCE_DIR "/tests/layout/golden/music_") + GetParam() +
                           ".script");
        std::ostringstream text;
        text << file.rdbuf();
        std::string out;
        ScriptRunner runner(
            _session, [](WindowTarn&, const std::string&, int, int) { return Status::Ok(); }, out);
        const Status status = runner.Run(text.str());
        EXPECT_TRUE(status) << status.message();
        window = _session.Windows().back().get();
        Tools() = ToolState();
    }

    using Lines = std::vector<std::string>;
    static Lines Sorted(Lines lines) {
        std::sort(lines.begin(), lines.end());
        return lines;
    }
    Rect Page() const { return PageRect(window->CurrentPage()); }

    // The paint of a whole page on the screen.
    Lines ToldByTheSheet() {
        Lines lines;
        ImagePort port(Page(), 100, 96);
        port.SetTrace(&lines);
        window->Sheet().Draw(port, Page(), {});
        return lines;
    }
    QImage AtOnce(const ViewScale& scale) {
        ImagePort port(Page(), scale.Zoom(), scale.Dpi());
        window->Sheet().Draw(port, Page(), {});
        return port.Image().convertToFormat(QImage::Format_RGB32);
    }
    QImage Pieced(TileCache& cache, const ViewScale& scale) {
        const Rect pixels = scale.Pixels(Page());
        QImage pieced(pixels.Width(), pixels.Height(), QImage::Format_RGB32);
        pieced.fill(Qt::red);
        QPainter painter(&pieced);
        for (int y = 0; y < pieced.height(); y += 313)
            for (int x = 0; x < pieced.width(); x += 271) {
                const QRect part(x, y, 271, 313);
                painter.setClipRect(part);
                cache.Paint(painter, window->Sheet(), Page(), scale, {}, part);
            }
        return pieced;
    }
    // A third above the first note of the second system.
    void AddHead() {
        const System* system = pageSystems.Next(pageSystems.First(window->CurrentPage()));
        const Voice* voice = measureStaffVoices.First(measureStaffs.First(systemMeasures.First(system)));
        VoiceSymbol* symbol = voiceSymbols.First(voice);
        while (!As<Chords>(symbol)) symbol = voiceSymbols.Next(symbol);
        const GenericNote* head = chordNotes.First(As<Chords>(symbol));
        uint16_t item = 3;
        for (int value = 1; value < ValueOf(symbol); value *= 2) item += 2;
        SetItem(item);
        const Rect ink = RectOf(head);
        MouseDown(*window, (ink.left + ink.right) / 2, FrameOf(StaffPar(head)).YOfLine(head->_line + 2), 0);
    }
};

TEST_P(MusicPages, ScreenPictureAndPaperAreToldTheSameToTheUnit) {
    std::vector<Lines> traces;
    PagesToRender pages = PagesOf(*window, 1);
    const auto draw = pages.draw;
    pages.draw = [&](GraphicPort& port, int page) {
        port.SetTrace(&traces.emplace_back());
        draw(port, page);
        port.SetTrace(nullptr);
    };
    QTemporaryDir folder;
    const auto in = [&](const char* name) { return folder.filePath(name).toStdString(); };
    ASSERT_TRUE(RenderPdf(in("a.pdf"), pages));
    ASSERT_TRUE(RenderSvg(in("a.svg"), pages));
    ASSERT_TRUE(RenderPng(in("a.png"), pages, 96, 100));
    MemoryPort memory;
    pages.draw(memory, 1);
    SetCurrentVoice(0);  // the screen shows the others in grey while one is edited
    // It has filed its objects as they were entered: the same in another order.
    const Lines entered = Sorted(ToldByTheSheet());
    window->RefilePage();
    traces.push_back(ToldByTheSheet());
    ASSERT_EQ(traces.size(), 5u);
    EXPECT_GT(traces[0].size(), 300u) << "a page full of music";
    for (const Lines& trace : traces) EXPECT_TRUE(trace == traces[0]);
    EXPECT_TRUE(entered == Sorted(traces[0]));
}

TEST_P(MusicPages, EachTileOfTheScreenIsToldItsPartInTheOrderOfTheWhole) {
    const Lines whole = ToldByTheSheet();
    std::set<std::string> told;
    ViewScale scale;
    QImage screen(1, 1, QImage::Format_RGB32);
    QPainter painter(&screen);
    TileCache cache;
    Lines part;
    cache.SetTrace(&part);
    constexpr int32_t kStep = 500;  // page units; finer than the tiles
    int made = 0;
    for (int32_t y = kStep / 2; y < Page().bottom; y += kStep)
        for (int32_t x = kStep / 2; x < Page().right; x += kStep) {
            part.clear();
            const QRect pixel(scale.Pixels(x), scale.Pixels(y), 1, 1);
            cache.Paint(painter, window->Sheet(), Page(), scale, {}, pixel);
            ASSERT_LE(cache.MadeCount(), made + 1) << "one tile at a time";
            made = cache.MadeCount();
            size_t at = 0;
            for (const std::string& line : whole)
                if (at < part.size() && part[at] == line) ++at;
            EXPECT_EQ(at, part.size()) << "the tile at " << x << " " << y;
            told.insert(part.begin(), part.end());
        }
    EXPECT_TRUE(told == std::set<std::string>(whole.begin(), whole.end())) << "nothing is left out";
}

TEST_P(MusicPages, PartsOfAPaintJoinToTheWholePixelForPixelAlsoBehindAnEdit) {
    const struct {
        int16_t zoom;
        double ratio;
    } cases[] = {{100, 1}, {137, 1}, {100, 2}, {137, 2}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.zoom << " percent, " << c.ratio << " pixels to the point");
        ViewScale scale;
        scale.Set(c.zoom, static_cast<int32_t>(96 * c.ratio), c.ratio);
        TileCache cache;
        const QImage before = AtOnce(scale);
        EXPECT_TRUE(Pieced(cache, scale) == before);
        const int made = cache.MadeCount();
        AddHead();
        const QImage after = AtOnce(scale);
        EXPECT_FALSE(after == before) << "the note is seen";
        EXPECT_TRUE(Pieced(cache, scale) == after) << "stale tiles and kept ones";
        EXPECT_GT(cache.MadeCount(), made);
        EXPECT_LE(cache.MadeCount() - made, made / 4) << "a note is no reason for a new page";
        window->Undo();
        EXPECT_TRUE(Pieced(cache, scale) == AtOnce(scale));
    }
}

TEST_P(MusicPages, BehindEveryKindOfEditTheKeptTilesFitTheNewOnes) {
    const ViewScale scale;
    TileCache cache;
    Pieced(cache, scale);
    for (const char* step : {
             "command 32819 from=3 to=4 interval=m3",
             "command 32781 fifths=4 from=2",
             "command 32807 mode=mathematical from=1 to=5",
             "command 32817 from=2 by=half",
             "undo",
             "command 33031 from=1 to=2",
             "command 33028 from=2",
             "command 40027 from=1 to=3",
             "command 33087",
             "command 32807 mode=engraver from=1 to=6",
             "command 32783 measure=3 type=double",
             "command 32778 measure=2 figure=4 bpm=90",
             "command 32797 measure=2 text=Fine",
             "command 32797 measure=2 text=Fine",
             "command 40011 text=",
             "command 32796 from=2 to=4 text=1.",
             "command 32782 at=every",
             "command 32777 from=2 to=2 size=80",
             "command 32791 count=1 after=2",
             "undo",
             "redo",
             "command 32794 from=2 to=2",
             "undo",
         }) {
        SCOPED_TRACE(step);
        std::string out;
        ScriptRunner runner(
            _session, [](WindowTarn&, const std::string&, int, int) { return Status::Ok(); }, out);
        const Status status = runner.Run(step);
        EXPECT_TRUE(status) << status.message();
        EXPECT_TRUE(Pieced(cache, scale) == AtOnce(scale));
    }
    SetAngledBeams(true);
}

TEST_P(MusicPages, TheViewShowsEachPartAsItShowsTheWhole) {
    ScoreView view(*window);
    view.resize(700, 500);
    view.show();
    QWidget& screen = *view.viewport();
    for (const int zoom : {100, 137}) {
        view.SetZoom(Zoom::Percent, zoom);
        view.verticalScrollBar()->setValue(71);
        const QImage whole = screen.grab().toImage();
        for (int y = 0; y < screen.height(); y += 113)
            for (int x = 0; x < screen.width(); x += 171) {
                const QRect part = QRect(x, y, 171, 113) & screen.rect();
                EXPECT_TRUE(screen.grab(part).toImage() == whole.copy(part)) << x << " " << y;
            }
    }
}

INSTANTIATE_TEST_SUITE_P(RealMusic, MusicPages, testing::Values("invention", "song", "chorale"));

}  // namespace
}  // namespace corvane
