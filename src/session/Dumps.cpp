#include "session/Dumps.h"

#include <algorithm>
#include <map>

#include "layout/GeometryDump.h"
#include "layout/LayoutDump.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"
#include "play/NoteDump.h"
#include "store/NewMemoryPool.h"

namespace corvane {
namespace {

void Line(std::string& out, int depth, const std::string& text) {
    out.append(static_cast<size_t>(2 * depth), ' ').append(text).append("\n");
}

std::string Number(int64_t n) { return std::to_string(n); }

void DumpEvent(const VoiceSymbol* symbol, std::string& out) {
    const std::string name = InfoOf(symbol->ClassNumber())->name;
    std::string text = name + " value " + Number(ValueOf(symbol)) + " x " + Number(XOf(symbol));
    if (const int dots = DotCount(symbol)) text += " dots " + Number(dots);
    if (const auto* chord = As<Chords>(symbol)) {
        const Stem* stem = StemOf(chord);
        text +=
            " stem " + Number(static_cast<int>(stem->_direction.Get())) + " length " + Number(stem->_length);
        if (BeamOf(stem)) text += " beamed";
        for (const GenericNote* note : chordNotes.Of(chord)) {
            text += " line " + Number(note->_line);
            if (const auto alteration = static_cast<int>(note->_alteration.Get()))
                text += " alteration " + Number(alteration);
            if (AccidentOf(note)) text += " accidental";
        }
    } else if (const auto* pause = As<Pause>(symbol); pause && BeamOf(pause)) {
        text += " beamed";
    }
    Line(out, 5, text);
}

void DumpCrossing(const MeasureStaff* crossing, int number, std::string& out) {
    Line(out, 3, "staff " + Number(number));
    for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
        Line(out, 4, InfoOf(symbol->ClassNumber())->name);
    for (const Voice* voice : measureStaffVoices.Of(crossing)) {
        Line(out, 4, "voice " + Number(voice->_number));
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) DumpEvent(symbol, out);
    }
}

Status DumpTree(WindowTarn& window, std::string& out) {
    for (const Page* page : documentPages.Of(window.GetDocument())) {
        Line(out, 0, "page " + Number(page->_pageNumber));
        int systemNumber = 0;
        for (const System* system : pageSystems.Of(page)) {
            Line(out, 1, "system " + Number(++systemNumber));
            for (const Measure* measure : systemMeasures.Of(system)) {
                Line(out, 2,
                     "measure " + Number(measure->_number) + " " + Number(measure->_num) + "/" +
                         Number(measure->_den));
                int staffNumber = 0;
                for (const MeasureStaff* crossing : measureStaffs.Of(measure))
                    DumpCrossing(crossing, ++staffNumber, out);
            }
        }
    }
    return Status::Ok();
}

Status DumpObjects(WindowTarn& window, std::string& out) {
    std::map<std::string, int> counts;
    const NewMemoryPool& pool = *window.Pool();
    for (void* object = pool.FirstObject(); object; object = pool.NextObject(object)) {
        const int16_t number = ClassNumberOf(object);
        ++counts[number < 0 ? "raw" : InfoOf(number)->name];
    }
    for (const auto& [name, count] : counts) out += name + " " + Number(count) + "\n";
    return Status::Ok();
}

Status DumpLayoutOf(WindowTarn& window, std::string& out) {
    out += LayoutDump(window.CurrentPage());
    return Status::Ok();
}

Status DumpGeometryOf(WindowTarn& window, std::string& out) {
    out += GeometryDump(window.CurrentPage());
    return Status::Ok();
}

Status DumpNotesOf(WindowTarn& window, std::string& out) {
    out += DumpNotes(window.GetDocument());
    return Status::Ok();
}

constexpr struct {
    const char* name;
    Status (*dump)(WindowTarn&, std::string&);
} kDumps[] = {{"layout", DumpLayoutOf},
              {"geometry", DumpGeometryOf},
              {"tree", DumpTree},
              {"notes", DumpNotesOf},
              {"objects", DumpObjects}};

}  // namespace

Status DumpScore(WindowTarn& window, std::string_view what, std::string& out) {
    for (const auto& dump : kDumps)
        if (what == dump.name) return dump.dump(window, out);
    return {Fault::Refused, "dump wants layout, geometry, tree, notes or objects"};
}

}  // namespace corvane
