#include "store/ScoreStream.h"

#include <algorithm>
#include <cstring>

#include "base/BigEndian.h"
#include "store/ClassSpans.h"
#include "store/NamedClasses.h"
#include "store/ObjectHeader.h"

namespace corvane {

const uint8_t kFileMagic[12] = {0x49, 0x46, 0x46, 0x19, 0x05, 0x08, 0x07, 0x08, 0x09, 0x03, 0x0B, 0x0C};

namespace {

constexpr size_t kMagicAt = 2, kCountAt = 22, kNamesAt = 24, kLongestName = 39;
constexpr uint32_t kRawSlack = 10;  // zero bytes behind a raw block in the file

// Byte magics count with their 12 bytes, text magics as whole zero-ended texts.
constexpr struct {
    const void* magic;
    size_t compared;
    bool legacy;
} kMagics[] = {
    {kFileMagic, sizeof kFileMagic, false},
    {"\x01\x0C\x03\x19\x05\x08\x07\x08\x09\x03\x0B\x0C", 12, true},
    {"TARN_ICC_1.0", 13, false},
    {"TARN_WIN_1.0", 13, true},
};

uint16_t ReadLittle16(const uint8_t* p) { return static_cast<uint16_t>(p[0] | p[1] << 8); }

// The class of a name at `at`, which is moved behind its zero; 0 for an unknown one or one without an end.
int16_t TakeName(std::span<const uint8_t> bytes, size_t& at) {
    const size_t longest = std::min(kLongestName + 1, bytes.size() - at);
    const auto* name = reinterpret_cast<const char*>(bytes.data() + at);
    const void* end = longest ? std::memchr(name, 0, longest) : nullptr;
    if (!end) return 0;
    const auto length = static_cast<size_t>(static_cast<const char*>(end) - name);
    at += length + 1;
    return NumberOf(std::string_view(name, length));
}

}  // namespace

bool ReadHeader(std::span<const uint8_t> bytes, ScoreHeader& header, std::string& fault) {
    if (bytes.size() < kNamesAt || ReadBig16(bytes.data()) != 0xFFFF) {
        fault = "the file does not begin as a score";
        return false;
    }
    std::copy_n(bytes.begin() + kMagicAt, header.magic.size(), header.magic.begin());
    const auto* known = std::find_if(std::begin(kMagics), std::end(kMagics), [&](const auto& m) {
        return std::memcmp(bytes.data() + kMagicAt, m.magic, m.compared) == 0;
    });
    if (known == std::end(kMagics)) {
        fault = "the file's magic is unknown";
        return false;
    }
    header.legacy = known->legacy;
    unsigned count = ReadBig16(bytes.data() + kCountAt);
    if (header.legacy && count >= 256) count = ReadLittle16(bytes.data() + kCountAt);
    header.stream = kNamesAt;
    for (unsigned i = 1; i <= count; ++i) {
        header.classes.push_back(TakeName(bytes, header.stream));
        if (header.classes.back()) continue;
        fault = "class name " + std::to_string(i) + " is unknown";
        return false;
    }
    // Legacy ids come in either order. The first is the Document's: read the wrong way it is beyond the
    // table.
    header.littleEndian = header.legacy && bytes.size() - header.stream >= kWordSize &&
                          ReadBig16(bytes.data() + header.stream) > count;
    return true;
}

void WriteHeader(std::span<const int16_t> classes, std::vector<uint8_t>& out) {
    out.assign(kNamesAt, 0);
    WriteBig16(out.data(), 0xFFFF);
    std::copy(std::begin(kFileMagic), std::end(kFileMagic), out.begin() + kMagicAt);
    WriteBig16(out.data() + kCountAt, static_cast<uint16_t>(classes.size()));
    for (const int16_t number : classes) {
        const char* name = InfoOf(number)->name;
        out.insert(out.end(), name, name + std::strlen(name) + 1);
    }
}

int16_t ScoreStream::WordAt(size_t at) const {
    const uint8_t* p = _bytes.data() + at;
    return static_cast<int16_t>(_header.littleEndian ? ReadLittle16(p) : ReadBig16(p));
}

bool ScoreStream::Fail(const char* why) {
    _fault = std::string(why) + " at byte " + std::to_string(_at) + " of the file";
    return false;
}

bool ScoreStream::Next(Record& record) {
    int16_t id = 0;
    for (; _bytes.size() - _at >= kWordSize; _at += kWordSize)
        if ((id = WordAt(_at)) != 0) break;
    if (id == 0) return _at == _bytes.size() ? false : Fail("an odd byte");
    record.word = id;
    uint32_t slack = 0;
    if (id < 0) {
        if (!IsRawWord(id)) return Fail("a raw block of impossible size");
        record.length = static_cast<uint32_t>(-id);
        slack = kRawSlack;
    } else {
        if (static_cast<size_t>(id) > _header.classes.size()) return Fail("an id beyond the table of names");
        record.word = _header.classes[static_cast<size_t>(id) - 1];
        if (record.word == named::kStaff) return Fail("an object of the abstract class Staff");
        record.length = ClassSpans::OfWord(record.word) - kWordSize;
    }
    if (_bytes.size() - _at < kWordSize + record.length + slack) return Fail("an object that is cut short");
    record.at = _at - _header.stream;
    record.data = _bytes.data() + _at + kWordSize;
    _at += kWordSize + record.length;
    for (uint32_t i = 0; i < slack; ++i)
        if (_bytes[_at + i]) return Fail("a raw block without its ten zero bytes");
    return true;
}

}  // namespace corvane
