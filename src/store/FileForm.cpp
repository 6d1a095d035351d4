#include "store/FileForm.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <numeric>

#include "base/Assert.h"
#include "store/ClassInfo.h"
#include "store/NamedClasses.h"
#include "store/ObjectHeader.h"

namespace corvane {
namespace {

constexpr uint16_t kBehaviour = 4;  // bytes of a behaviour word

// After the first behaviour word is taken out, these runs of the rest stand elsewhere: copies from the
// shifted bytes as they were. DO NOT CHANGE: files rest on it.
struct Move {
    int16_t classNumber;
    uint16_t to, from, length;
};
constexpr Move kMoves[] = {
    {5, 42, 38, 24},  {5, 20, 12, 22},                                    // SimpleStaff
    {8, 20, 12, 34},                                                      // StaffBot
    {22, 0, 6, 12},   {22, 12, 0, 4},  {22, 26, 18, 14}, {22, 20, 4, 1},  // Stem
    {26, 24, 20, 23},                                                     // Pause
    {107, 6, 10, 8},                                                      // CrossBeam
};

using Labels = std::vector<uint16_t>;

// Which byte of the record each byte of it is, once its fields have been turned around.
Labels Swapped(const ClassInfo& info) {
    std::vector<uint8_t> low(info.size), high(info.size);
    for (uint16_t i = 0; i < info.size; ++i) {
        low[i] = static_cast<uint8_t>(i);
        high[i] = static_cast<uint8_t>(i >> 8);
    }
    info.creator->SwapBytes(low.data(), info);
    info.creator->SwapBytes(high.data(), info);
    Labels labels(info.size);
    for (uint16_t i = 0; i < info.size; ++i) labels[i] = static_cast<uint16_t>(high[i] << 8 | low[i]);
    // Three numbers of a Tempo that its plan leaves out are big-endian all the same.
    if (info.number == named::kTempo)
        for (const uint16_t at : {16, 18, 20}) std::swap(labels[at], labels[at + 1]);
    return labels;
}

// Which byte of the record each byte of the file form is, before fields are turned; kNone for a zero.
Labels Moved(const ClassInfo& info) {
    Labels file(info.size);
    std::iota(file.begin(), file.end(), uint16_t{0});
    if (info.number == named::kStringa) return file;
    std::rotate(file.begin(), file.begin() + kBehaviour, file.end());
    const Labels shifted = file;
    for (const Move& m : kMoves)
        if (m.classNumber == info.number)
            std::copy_n(shifted.begin() + m.from, m.length, file.begin() + m.to);
    std::fill(file.end() - kBehaviour, file.end(), FileForm::kNone);
    for (uint16_t& label : file)
        if (info.secondWord && label >= info.secondWord && label < info.secondWord + kBehaviour)
            label = FileForm::kNone;
    return file;
}

// The way back: the byte of the file that holds each byte of the record. Where a move has left a copy behind,
// the copy that a reader takes is the moved one.
Labels Back(const ClassInfo& info, const Labels& file) {
    Labels from(info.size);
    std::iota(from.begin(), from.end(), uint16_t{0});
    const Labels plain = from;
    if (info.number != named::kStringa) {
        for (const Move& m : kMoves)
            if (m.classNumber == info.number)
                std::copy_n(plain.begin() + m.to, m.length, from.begin() + m.from);
        std::rotate(from.begin(), from.end() - kBehaviour, from.end());
    }
    for (uint16_t i = 0; i < info.size; ++i)
        if (file[from[i]] != i) from[i] = FileForm::kNone;
    return from;
}

}  // namespace

FileForm::FileForm(int16_t classNumber) {
    const ClassInfo& info = *InfoOf(classNumber);
    const Labels swapped = Swapped(info), moved = Moved(info);
    _places = Back(info, moved);
    const uint32_t dim = ObjDim(info.size);
    CORVANE_ASSERT(dim <= kLargestRecord);
    Labels toFile(dim, kNone), toMemory(dim, kNone);
    for (uint16_t i = 0; i < info.size; ++i) {
        if (moved[i] != kNone) toFile[i] = swapped[moved[i]];
        if (_places[i] != kNone) toMemory[swapped[i]] = _places[i];
    }
    _toFile = Moves(toFile);
    _toMemory = Moves(toMemory);
}

FileForm::Moves::Moves(const Labels& from) : _size(static_cast<uint32_t>(from.size())) {
    // Whether the bytes from i on are `width` neighbours, last to first.
    const auto turned = [&](size_t i, uint16_t width) {
        if (i + width > from.size() || from[i] == kNone || from[i] + 1 < width) return false;
        for (uint16_t k = 1; k < width; ++k)
            if (from[i + k] != from[i] - k) return false;
        return true;
    };
    for (uint16_t i = 0; i < _size;) {
        const uint16_t width = turned(i, 4) ? 4 : turned(i, 2) ? 2 : 1;
        auto& moves = width == 4 ? _fours : width == 2 ? _twos : _bytes;
        if (from[i] != kNone) moves.push_back({i, static_cast<uint16_t>(from[i] - (width - 1))});
        i = static_cast<uint16_t>(i + width);
    }
}

void FileForm::Moves::Run(const uint8_t* from, uint8_t* to) const {
    std::memset(to, 0, _size);
    for (const Move& m : _fours) {
        uint32_t field;
        std::memcpy(&field, from + m.from, sizeof field);
        field = __builtin_bswap32(field);
        std::memcpy(to + m.to, &field, sizeof field);
    }
    for (const Move& m : _twos) {
        uint16_t field;
        std::memcpy(&field, from + m.from, sizeof field);
        field = __builtin_bswap16(field);
        std::memcpy(to + m.to, &field, sizeof field);
    }
    for (const Move& m : _bytes) to[m.to] = from[m.from];
}

const FileForm& FileForm::Of(int16_t classNumber) {
    static const auto forms = [] {
        std::vector<std::unique_ptr<const FileForm>> all(1);
        for (int16_t n = 1; n <= ClassCount(); ++n) all.emplace_back(new FileForm(n));
        return all;
    }();
    CORVANE_ASSERT_AS(classNumber > 0 && static_cast<size_t>(classNumber) < forms.size(), "_infoArray");
    return *forms[static_cast<size_t>(classNumber)];
}

}  // namespace corvane
