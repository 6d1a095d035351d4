// Mouse, keys and wheel at the view, and what they do to the score.
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include "ViewFixture.h"
#include "edit/CommandTable.h"
#include "edit/ControlPoints.h"
#include "edit/Selection.h"
#include "layout/NoteGeometry.h"
#include "model/Par.h"
#include "shell/ScoreView.h"

namespace corvane {
namespace {

class View : public ViewTest {
protected:
    View() : view(*window) {
        view.resize(700, 500);
        view.show();
    }
    // Where the view shows a point of the page; the test screen has a pixel to the point.
    QPointF On(Point units) const {
        const QPoint corner = view.PageCornerOnScreen() - view.viewport()->mapToGlobal(QPoint(0, 0));
        return QPointF(corner) + QPointF(units.x, units.y) * view.Scale().PixelsPerUnit();
    }
    void Send(QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::LeftButton) {
        QMouseEvent event(type, at, view.viewport()->mapToGlobal(at), button, button, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    }
    bool Type(int key, const char* text, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        return view.TakeKey(event);
    }
    void Wheel(QPointF at, int angle, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(at, view.viewport()->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.viewport(), &event);
    }

    ScoreView view;
};

TEST_F(View, APressEntersWhereItPointsHoweverThePageIsScrolledAndZoomed) {
    int measure = 0;
    const struct {
        const char* why;
        int zoom, x, y;
    } cases[] = {
        {"as it opens", 105, 0, 0}, {"scrolled", 105, 60, 40}, {"large", 300, 900, 300}, {"small", 30, 0, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        view.SetZoom(Zoom::Percent, c.zoom);
        view.horizontalScrollBar()->setValue(c.x);
        view.verticalScrollBar()->setValue(c.y);
        ++measure;
        Send(QEvent::MouseButtonPress, On(PlaceOf(measure, 4)));
        Send(QEvent::MouseButtonDblClick, On(PlaceOf(measure, 7)));  // the next note of a quick hand
        EXPECT_EQ(LinesIn(measure), (std::vector<int>{4, 7}));
    }
}

TEST_F(View, OtherButtonsAndPressesOnTheDeskBesideTheLastStaffDoNotCrash) {
    Send(QEvent::MouseButtonPress, On(PlaceOf(1, 4)), Qt::RightButton);
    EXPECT_TRUE(LinesIn(1).empty());
    Send(QEvent::MouseMove, {1, 1}, Qt::NoButton);
    view.grab();
}

TEST_F(View, TabWalksInTheScoreAndEscapeLeavesStepByStep) {
    EnterSome();
    const auto key = [&](int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, code, modifiers);
        QApplication::sendEvent(&view, &event);
    };
    key(Qt::Key_Escape);
    EXPECT_EQ(Tools().toolMode, ModeArrow);
    key(Qt::Key_Tab);  // what was entered last
    const std::vector<Rect> first = SelectionRects(*window);
    ASSERT_FALSE(first.empty());
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    const std::vector<Rect> second = SelectionRects(*window);
    ASSERT_FALSE(second.empty());
    EXPECT_LT(second.front().left, first.front().left);
    key(Qt::Key_Tab);
    EXPECT_EQ(SelectionRects(*window).front(), first.front());
    key(Qt::Key_Escape);
    EXPECT_EQ(SelectionRects(*window).size(), first.size())
        << "the menu's shortcut takes it away, not the view";
}

TEST_F(View, EscapeEndsADragWithoutATrace) {
    EnterSome();
    SetToolMode(ModeArrow);
    const GenericNote* note = nullptr;
    for (const DrawPatch& patch : window->Sheet().AllPatches())
        if (const auto* column = patch.Record<ChordSymbol>())
            note = stemNotes.First(chordSymbolStems.First(column));
    ASSERT_NE(note, nullptr);
    const int line = note->_line;
    const Rect head = RectOf(note);
    const QPointF at = On({(head.left + head.right) / 2, (head.top + head.bottom) / 2}),
                  to = at - QPointF(0, 40);
    const auto escapeIsTheMenus = [&] {
        QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
        asked.ignore();
        QApplication::sendEvent(&view, &asked);
        return !asked.isAccepted();
    };
    EXPECT_TRUE(escapeIsTheMenus());
    Send(QEvent::MouseButtonPress, at);
    Send(QEvent::MouseMove, to);
    EXPECT_FALSE(escapeIsTheMenus());
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&view, &escape);
    Send(QEvent::MouseButtonRelease, to);
    EXPECT_EQ(note->_line, line);
}

TEST_F(View, WithHandlesShownTabAndArrowKeysAreForThem) {
    const auto key = [&](int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, code, modifiers);
        QApplication::sendEvent(&view, &event);
    };
    const Measure* first = systemMeasures.First(pageSystems.First(window->CurrentPage()));
    const int32_t edge = first->_right;
    key(Qt::Key_Escape);
    ASSERT_TRUE(RunCommand(*window, 33048));
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    key(Qt::Key_Right);
    EXPECT_EQ(first->_right, edge + 20);
    key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(first->_right, edge - 80);
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    key(Qt::Key_Left);
    EXPECT_EQ(first->_right, edge - 80) << "the system is at the margin";
}

TEST_F(View, TheRightButtonSelectsWhatItIsPressedOn) {
    EnterSome();
    const auto right = [&](int line) {
        const System* system = pageSystems.First(window->CurrentPage());
        const Voice* voice = measureStaffVoices.First(measureStaffs.First(systemMeasures.First(system)));
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            const GenericNote* note = chordNotes.First(As<Chords>(symbol));
            const Rect head = RectOf(note);
            const Point middle{(head.left + head.right) / 2, (head.top + head.bottom) / 2};
            if (note->_line == line) Send(QEvent::MouseButtonPress, On(middle), Qt::RightButton);
        }
    };
    right(9);
    EXPECT_TRUE(window->TheSelection().IsEmpty()) << "the pencil keeps what is selected";
    SetToolMode(ModeArrow);
    right(9);
    const std::vector<Rect> one = SelectionRects(*window);
    ASSERT_EQ(one.size(), 1u);
    EXPECT_FALSE(window->interaction) << "and no band follows the pointer";
    window->TheSelection().SelectAll();
    right(4);
    EXPECT_TRUE(window->TheSelection().IsWholeScore()) << "pressed on what is selected";
    EXPECT_EQ(LinesIn(1), (std::vector<int>{1, 4, 9, 12}));
}

TEST_F(View, PlainCharactersAreToolKeysAndShortcutsAreNot) {
    EXPECT_TRUE(Type(Qt::Key_E, "e"));
    EXPECT_EQ(Tools().toolMode, ModeEraser);
    EXPECT_TRUE(Type(Qt::Key_4, "4"));
    EXPECT_EQ(Tools().toolMode, ModePencil);
    EXPECT_EQ(Tools().NoteItem(), 9);
    EXPECT_TRUE(Type(Qt::Key_S, "S", Qt::ShiftModifier));
    EXPECT_EQ(Tools().NoteItem(), 23);
    EXPECT_FALSE(Type(Qt::Key_S, "\x13", Qt::ControlModifier));
    EXPECT_FALSE(Type(Qt::Key_F, "f", Qt::AltModifier));
    EXPECT_FALSE(Type(Qt::Key_PageDown, ""));
    EXPECT_EQ(Tools().NoteItem(), 23);
}

TEST_F(View, TheWheelZoomsAroundThePointer) {
    view.SetZoom(Zoom::Percent, 200);
    const QPointF pointer(333, 222);
    for (int turn : {120, 120, 360, -120, -240, 120}) {
        const QPointF before = (pointer - On({0, 0})) / view.Scale().PixelsPerUnit();
        Wheel(pointer, turn, Qt::ControlModifier);
        const QPointF after = On({static_cast<int>(before.x()), static_cast<int>(before.y())});
        EXPECT_NEAR(after.x(), pointer.x(), 2);
        EXPECT_NEAR(after.y(), pointer.y(), 2);
    }
    const int zoom = view.CurrentZoom().percent, place = view.verticalScrollBar()->value();
    Wheel(pointer, -120, Qt::NoModifier);
    EXPECT_EQ(view.CurrentZoom().percent, zoom);
    EXPECT_GT(view.verticalScrollBar()->value(), place);
}

TEST_F(View, AFittingPageStaysFittingAndZoomHasBounds) {
    view.SetZoom(Zoom::FitPage);
    for (const QSize size : {QSize(400, 900), QSize(1300, 600)}) {
        view.resize(size);
        QApplication::processEvents();
        EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
        EXPECT_EQ(view.verticalScrollBar()->maximum(), 0);
        const Rect page = view.Scale().Pixels(PageRect(window->CurrentPage()));
        EXPECT_TRUE(page.Width() > size.width() - 70 || page.Height() > size.height() - 70)
            << "as large as fits";
    }
    view.SetZoom(Zoom::FitWidth);
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
    view.StepZoom(100);
    EXPECT_EQ(view.CurrentZoom().percent, Zoom::kMost);
    view.StepZoom(-100);
    EXPECT_EQ(view.CurrentZoom().percent, Zoom::kLeast);
}

TEST_F(View, MarginsAreShownWhileTheyAreAskedFor) {
    const QImage without = view.grab().toImage();
    view.ShowMargins(true);
    EXPECT_NE(view.grab().toImage(), without);
    view.ShowMargins(false);
    EXPECT_EQ(view.grab().toImage(), without);
}

TEST_F(View, HandlesAreSeenAndPressedAtEveryZoom) {
    constexpr int kBarlines = 33048, kHide = 33041;
    SetToolMode(ModeArrow);
    for (const int zoom : {25, 105, 400}) {
        SCOPED_TRACE(zoom);
        view.SetZoom(Zoom::Percent, zoom);
        ASSERT_TRUE(RunCommand(*window, kBarlines));
        const Handle handle = window->Handles().All()[1];
        ASSERT_TRUE(RunCommand(*window, kHide));
        view.ScrollTo(
            {handle.place.x - 500, handle.place.y - 500, handle.place.x + 500, handle.place.y + 500});
        const auto grab = [this] { return view.viewport()->grab().toImage(); };
        const QImage without = grab();
        ASSERT_TRUE(RunCommand(*window, kBarlines));
        const QImage with = grab();
        Send(QEvent::MouseMove, On(handle.place), Qt::NoButton);
        EXPECT_EQ(view.viewport()->cursor().shape(), Qt::SizeAllCursor);
        Send(QEvent::MouseMove, On(handle.place) + QPointF(30, 30), Qt::NoButton);
        EXPECT_NE(view.viewport()->cursor().shape(), Qt::SizeAllCursor);
        const QPoint middle = On(handle.place).toPoint();
        int changed = 0;
        for (int dy = -15; dy <= 15; ++dy) {
            const QPoint at = middle + QPoint(-1, dy);
            changed += with.pixel(at) != without.pixel(at);
        }
        EXPECT_GE(changed, 2) << "at least its edges";
        EXPECT_LE(changed, 13);
        Send(QEvent::MouseButtonPress, QPointF(middle + QPoint(3, -3)));
        Send(QEvent::MouseButtonRelease, QPointF(middle + QPoint(3, -3)));
        EXPECT_TRUE(window->Handles().IsSelected(handle));
        Send(QEvent::MouseButtonPress, QPointF(middle), Qt::RightButton);
        EXPECT_TRUE(window->Handles().IsSelected(handle)) << "the menu is about it";
        EXPECT_NE(grab().pixel(middle), with.pixel(middle)) << "a selected one is filled";
        ASSERT_TRUE(RunCommand(*window, kHide));
        window->caret.visible = false;
        EXPECT_EQ(grab(), without);
    }
}

TEST_F(View, ScrollToBringsAPlaceIntoSight) {
    view.SetZoom(Zoom::Percent, 400);
    const Rect last{11000, 14000, 11500, 14500}, first{200, 300, 700, 800};
    for (const Rect& place : {last, first, last}) {
        view.ScrollTo(place);
        const QRectF sight(0, 0, view.viewport()->width(), view.viewport()->height());
        EXPECT_TRUE(sight.contains(On({place.left, place.top})));
        EXPECT_TRUE(sight.contains(On({place.right, place.bottom})));
    }
}

}  // namespace
}  // namespace corvane
