#include "layout/StaffNames.h"

#include <algorithm>

#include "layout/DrawPatch.h"
#include "layout/Frames.h"
#include "layout/PageFit.h"
#include "layout/PageLayout.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int32_t kGap = 100;     // page units from a name to its system
constexpr double kMiddle = 0.33;  // ems from a baseline to the middle of its letters
constexpr int32_t kLeastSize = 189;

int32_t RoomOf(const System* system) {
    const Page* page = PagePar(system);
    const Document* document = page ? documentPages.ParentOf(page) : nullptr;
    return document ? IndentOf(document, system) : 0;
}

bool IsFirst(const System* system) { return FirstSystem(documentPages.ParentOf(PagePar(system))) == system; }

// Left of every brace and bracket.
int32_t RightOfNames(const System* system) {
    int32_t right = OriginOf(system).x;
    for (Connection* connection : systemConnections.Of(system)) {
        const Rect ink = PatchOf(connection).Bounds();
        if (!ink.IsEmpty()) right = std::min(right, ink.left);
    }
    return right - kGap;
}

int32_t MiddleOf(const Staff* staff) {
    const StaffFrame frame = FrameOf(staff);
    return (frame.top + frame.Bottom()) / 2;
}

std::string_view FormOf(const System* system, const Staff* staff) {
    const std::string_view name = NameOf(AllStaffOf(staff));
    return IsFirst(system) ? LongName(name) : ShortName(name);
}

}  // namespace

AllStaff* AllStaffOf(const Staff* staff) {
    const MultiStaff* multi = As<SimpleStaff>(staff);
    if (const auto* bot = As<StaffBot>(staff)) multi = customStaffs.ParentOf(bot);
    return multi ? allStaffStaffs.ParentOf(multi) : nullptr;
}

TextLook StaffNameLook(const Document* document) {
    const auto* preferences = Preferences<PagePref>(document);
    TextLook look = LookOf(preferences ? preferences->_font.Get() : nullptr);
    look.size = std::max(look.size, kLeastSize) * 11 / 9;
    return look;
}

StaffNamePicture NamePictureOf(const Staff* staff) {
    const System* system = SystemPar(staff);
    if (!system || RoomOf(system) <= 0) return {};
    const std::string_view text = FormOf(system, staff);
    int32_t middle = MiddleOf(staff);
    for (const Connection* connection : systemConnections.Of(system)) {
        const auto [first, second] = PairOf(system, connection);
        if (staff != first && staff != second) continue;
        const std::string_view other = FormOf(system, staff == first ? second : first);
        const bool one = other.empty() || other == text;
        if (one && staff == second && other == text) return {};
        if (one) middle = (MiddleOf(first) + MiddleOf(second)) / 2;
    }
    if (text.empty()) return {};
    const TextLook look = StaffNameLook(DocumentPar(docStaffStaffs.ParentOf(staff)));
    const int32_t baseline = middle + static_cast<int32_t>(look.size * kMiddle);
    return {text, look, {{RightOfNames(system), baseline}, TextAlign::Right}};
}

int32_t WidthOfNames(const Document* document, std::string_view (*form)(std::string_view)) {
    const System* system = FirstSystem(document);
    if (!system) return 0;
    const TextLook look = StaffNameLook(document);
    int32_t width = 0;
    for (const DocStaff* docStaff : documentDocStaffs.Of(document)) {
        const Staff* staff = docStaffStaffs.First(docStaff);
        const std::string_view name = staff ? form(NameOf(AllStaffOf(staff))) : std::string_view();
        if (!name.empty()) width = std::max(width, WidthOfText(name, look));
    }
    return width ? width + OriginOf(system).x - RightOfNames(system) : 0;
}

}  // namespace corvane
