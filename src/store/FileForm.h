// The form in which a typed object stands in a file: no behaviour words, fields most significant byte first,
// the second base of some classes moved. One map of bytes a class, found by running the class's steps on
// labels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace corvane {

// No record is larger, filler included.
inline constexpr uint32_t kLargestRecord = 320;

class FileForm {
public:
    static constexpr uint16_t kNone = 0xFFFF;

    // Of a registered class that has objects; read-only once the class table is complete.
    static const FileForm& Of(int16_t classNumber);

    uint32_t Dim() const { return static_cast<uint32_t>(_toFile.size()); }  // objDim: bytes in the file

    // `memory` holds the record followed by a zero byte; `file` gets Dim() bytes, filler and behaviour words
    // zero.
    void Encode(const uint8_t* memory, uint8_t* file) const {
        for (size_t i = 0, n = _toFile.size(); i < n; ++i) file[i] = memory[_toFile[i]];
    }
    // `memory` gets Dim() bytes; what no byte of the file tells is zero, behaviour words too.
    void Decode(const uint8_t* file, uint8_t* memory) const {
        for (size_t i = 0, n = _toMemory.size(); i < n; ++i)
            memory[i] = _toMemory[i] == kNone ? uint8_t{0} : file[_toMemory[i]];
    }
    // Where the field at a place of the memory form stands in the file form; kNone where the file does not
    // carry it.
    uint16_t PlaceInFile(uint16_t place) const { return _places[place]; }

private:
    explicit FileForm(int16_t classNumber);

    std::vector<uint16_t> _toFile, _toMemory, _places;
};

}  // namespace corvane
