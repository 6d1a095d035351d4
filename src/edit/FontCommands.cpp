// The Font Table: which installed font stands in for one that scores name. It holds for every score.
#include <algorithm>

#include "edit/CommandTable.h"
#include "model/FontTable.h"

namespace corvane {
namespace {

bool Names(const Document* document, const std::string& font) {
    const FontList fonts = FontsOf(document);
    return std::any_of(fonts.Pairs().begin(), fonts.Pairs().end(),
                       [&](const FontList::Pair& pair) { return pair.docFont == font; });
}

// Without `sys` the font stands for itself again.
Status FontTableCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::string doc = reader.Text("doc"), sys = reader.Text("sys");
    if (doc.empty()) reader.Refuse("doc is missing");
    if (const Status status = reader.Result(); !status) return status;
    FontList list = TheFontList();
    const bool known = Names(window.GetDocument(), doc) || list.SystemFont(doc) != doc;
    if (!known) return {Fault::Refused, "The score names no font \"" + doc + "\""};
    if (sys.empty() || sys == doc)
        list.Remove(doc);
    else
        list.Set(doc, sys);
    UseFontList(std::move(list));
    for (WindowTarn* each : WindowTarn::All()) {
        each->Sheet().MarkAllDirty();
        each->Shell().Refresh(*each);
    }
    return Status::Ok();
}

constexpr Command kFonts[] = {{33090, "Font Table", FontTableCommand, NotPlaying}};

}  // namespace

CommandFamily FontCommands() { return kFonts; }

}  // namespace corvane
