// Where the caret's line stands: beside what it was put on, on the side on which a paste comes.
#include "edit/CaretLine.h"
#include "edit/Clipboard.h"
#include "spanner_fixture.h"

namespace corvane {
namespace {

class CaretLineTest : public SpannerTest {
protected:
    int32_t LineAt(Point p) {
        SetToolMode(ModeArrow);
        MouseDown(*window, p.x, p.y, 0);
        MouseUp(*window, p.x, p.y);
        return CaretLineX(window->caret);
    }
};

TEST_F(CaretLineTest, ItStandsBesideTheEventWhereAPasteWouldCome) {
    Fill(1, 1, "4:2 4:4");
    Item(kSharp);
    Press(1, 1, XOf(Events(1, 1)[0]) + 10, 2);
    const GenericNote* note = Head(1, 1, 0);
    const Rect head = RectOf(note), sign = RectOf(AccidentOf(note));
    EXPECT_GT(LineAt(MiddleOf(head)), head.right);
    EXPECT_LT(LineAt(MiddleOf(sign)), sign.left) << "left of the note: before its sign";
    const Point free = At(1, 1, 800, 12);
    EXPECT_EQ(LineAt(free), free.x);

    // What is copied from the second note comes between the two.
    (void)LineAt(MiddleOf(RectOf(Head(1, 1, 1))));
    Copy(*window);
    (void)LineAt(MiddleOf(RectOf(Head(1, 1, 0))));
    ASSERT_TRUE(Paste(*window));
    EXPECT_EQ(Lines(1, 1), (std::vector<int>{2, 4, 4}));
    (void)LineAt({RectOf(AccidentOf(Head(1, 1, 0))).left - 10, MiddleOf(head).y});
    ASSERT_TRUE(Paste(*window));
    EXPECT_EQ(Lines(1, 1), (std::vector<int>{4, 2, 4, 4})) << "also before the first";
}

}  // namespace
}  // namespace corvane
