// symbols: a contact sheet of every symbol name, each on a staff of its own with the name below.
#include <string>
#include <vector>

#include "cli/Program.h"
#include "layout/DrawFamilies.h"
#include "layout/LineWeights.h"
#include "layout/SymbolInk.h"
#include "model/Clefs.h"
#include "model/GlyphTable.h"
#include "model/SymbolNames.h"
#include "model/SymbolTable.h"
#include "platform/qt/HeadlessQt.h"
#include "shell/ScoreExport.h"

namespace corvane {
namespace {

constexpr int32_t kLineDistance = 100, kMargin = 500, kNameSize = 130;
constexpr int32_t kCellWidth = 1500, kCellHeight = 1500, kStaffTop = 500, kNameBelow = 1380, kColumns = 8;
constexpr int kStaffLines = 5;

using Names = std::vector<std::string>;

void AddGraceForms(Names& names) {
    for (const std::string& plain : FixedSymbolNames())
        if (!GlyphsOf("Grace" + plain).empty()) names.push_back("Grace" + plain);
}

void AddAccidentals(Names& names) {
    for (const char* form : {"#", "#G", "#O"})
        for (const AccidentalGlyph& accidental : AccidentalGlyphs())
            names.push_back(form + std::string(1, accidental.letter));
    for (const AccidentalGlyph& accidental : AccidentalGlyphs())
        names.push_back("#" + std::string(1, accidental.letter) + "(");
}

void AddSignatures(Names& names) {
    for (const bool cut : {false, true}) names.push_back(CommonTimeName(cut));
    for (const TimeForm form :
         {TimeForm::Stacked, TimeForm::Bracketed, TimeForm::Upper, TimeForm::NumeratorOnly})
        for (const TimeFraction& fraction : {TimeFraction{3, 4}, TimeFraction{12, 8}})
            names.push_back(TimeSignatureName(form, fraction.first, fraction.second));
    const TimeFraction sum[] = {{3, 8}, {2, 8}};
    for (const TimeForm form : {TimeForm::Stacked, TimeForm::Sum})
        names.push_back(TimeSignatureName(form, sum));
    for (const int clef : {1, 2, 6, 7, 8, 9, 10})
        for (const int key : {7, -7}) names.push_back(KeySignatureName(clef, key));
    names.push_back(KeySignatureName(1, 2, 5));
    names.push_back(KeySignatureName(1, 0, -4));
}

Names AllNames() {
    Names names = FixedSymbolNames();
    AddGraceForms(names);
    AddAccidentals(names);
    AddSignatures(names);
    for (const char* text : RepetitionTexts()) names.emplace_back(text);
    for (const char* name :
         {"G5",   "G12",   "G345", "Dpppp", "Dppp", "Dpp",  "Dp",    "Dmp",  "Dmf",   "Df",   "Dff",
          "Dfff", "Dffff", "Dfp",  "Dfpp",  "Dsf",  "Dsfz", "Dsffz", "Dsfp", "Dsfpp", "Drfz", "CustomA"})
        names.emplace_back(name);
    return names;
}

// Names hold single bytes; a port wants UTF-8.
std::string Readable(const std::string& name) {
    std::string text;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 128)
            text += c;
        else
            text += {static_cast<char>(0xC0 | byte >> 6), static_cast<char>(0x80 | (byte & 63))};
    }
    return text;
}

// Clefs stand on their line; all others are drawn from the middle line.
int LineOf(const std::string& name) {
    const int clef = ClefCodeOfSymbol(name);
    return clef ? ClefLine(clef, kStaffLines) : kStaffLines;
}

void DrawCell(GraphicPort& port, Document* document, const std::string& name, Point corner) {
    const int32_t top = corner.y + kStaffTop, bottom = top + 4 * kLineDistance,
                  middle = corner.x + kCellWidth / 2;
    for (int32_t y = top; y <= bottom; y += kLineDistance)
        PaintLevel(port, corner.x + 100, corner.x + kCellWidth - 100, y, StaffLineWeight(kLineDistance));
    FontSymbol* symbol = LookupSymbol(document, name);
    const int32_t wide = InkOf(symbol, Point{}, kLineDistance, 100).Width(), most = kCellWidth - 100;
    const int32_t percent = wide > most ? 100 * most / wide : 100;
    const Rect ink = InkOf(symbol, Point{}, kLineDistance, percent);
    DrawSymbol(port, symbol, middle - (ink.left + ink.right) / 2,
               bottom - (LineOf(name) - 1) * kLineDistance / 2, kLineDistance, percent);
    ReleaseSymbol(document, symbol);

    const std::string text = Readable(name);
    port.SetFontName("Times New Roman");
    port.SetFontStyle(0);
    const int32_t room = kCellWidth - 60;
    port.SetFontSize(kNameSize);
    const int32_t width = port.StringWidth(text);
    if (width > room) port.SetFontSize(kNameSize * room / width);
    port.DrawString(text, middle - port.StringWidth(text) / 2, corner.y + kNameBelow);
}

using Render = Status (*)(const std::string& path, const PagesToRender& pages, int zoom);
constexpr struct {
    const char* extension;
    Render render;
} kFormats[] = {
    {"png", [](const std::string& path, const PagesToRender& pages,
               int zoom) { return RenderPng(path, pages, kScreenDpi, static_cast<int16_t>(zoom)); }},
    {"pdf", [](const std::string& path, const PagesToRender& pages, int) { return RenderPdf(path, pages); }},
    {"svg", [](const std::string& path, const PagesToRender& pages, int) { return RenderSvg(path, pages); }},
};

PagesToRender SheetOf(Document* document, Names names) {
    const auto rows = static_cast<int32_t>((names.size() + kColumns - 1) / kColumns);
    PagesToRender pages;
    pages.width = 2 * kMargin + kColumns * kCellWidth;
    pages.height = 2 * kMargin + rows * kCellHeight;
    pages.firstPage = pages.lastPage = 1;
    pages.title = "Symbols";
    pages.draw = [document, names = std::move(names)](GraphicPort& port, int) {
        for (size_t i = 0; i < names.size(); ++i) {
            const auto place = static_cast<int32_t>(i);
            DrawCell(port, document, names[i],
                     {kMargin + place % kColumns * kCellWidth, kMargin + place / kColumns * kCellHeight});
        }
    };
    return pages;
}

}  // namespace

int RunSymbols(const std::string& out, int zoom) {
    HeadlessProgram program;
    for (const auto& format : kFormats) {
        if (ExtensionOf(out) != format.extension) continue;
        StartHeadlessQt();
        WindowTarn* window = program.TheSession().NewScore({1, 1}, "S");
        window->Activate();
        return Outcome(format.render(out, SheetOf(window->GetDocument(), AllNames()), zoom));
    }
    return Refuse("\"" + out + "\": only png, pdf and svg can be written");
}

}  // namespace corvane
