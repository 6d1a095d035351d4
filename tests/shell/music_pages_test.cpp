// Whole pages of music: every surface is told the same, and parts of a paint join to the whole.
#include <QDir>
#include <QPainter>
#include <QTemporaryDir>
#include <fstream>
#include <sstream>

#include "ViewFixture.h"
#include "graphics/MemoryPort.h"
#include "platform/qt/ImagePort.h"
#include "session/ScriptRunner.h"
#include "shell/ScoreExport.h"
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
};

TEST_P(MusicPages, ScreenPictureAndPaperAreToldTheSameToTheUnit) {
    std::vector<std::vector<std::string>> traces;
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
    ASSERT_EQ(traces.size(), 4u);
    EXPECT_GT(traces[0].size(), 300u) << "a page full of music";
    for (const auto& trace : traces) EXPECT_TRUE(trace == traces[0]);
}

TEST_P(MusicPages, PartsOfAPaintJoinToTheWholePixelForPixel) {
    const Rect page = PageRect(window->CurrentPage());
    ImagePort whole(page, 100, 96);
    window->Sheet().Draw(whole, page, {});
    ViewScale scale;
    scale.Set(100, 96, 1);
    const Rect pixels = scale.Pixels(page);
    QImage pieced(pixels.Width(), pixels.Height(), QImage::Format_RGB32);
    QPainter painter(&pieced);
    TileCache cache;
    for (int y = 0; y < pieced.height(); y += 113)
        for (int x = 0; x < pieced.width(); x += 171) {
            const QRect part(x, y, 171, 113);
            painter.setClipRect(part);
            cache.Paint(painter, window->Sheet(), page, scale, {}, part);
        }
    painter.end();
    EXPECT_TRUE(pieced == whole.Image().convertToFormat(pieced.format()));
}

INSTANTIATE_TEST_SUITE_P(RealMusic, MusicPages, testing::Values("invention", "song", "chorale"));

}  // namespace
}  // namespace corvane
