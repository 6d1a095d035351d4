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

    uint32_t Dim() const { return _toFile.Size(); }  // objDim: bytes in the file

    // `file` gets Dim() bytes, filler and behaviour words zero.
    void Encode(const uint8_t* memory, uint8_t* file) const { _toFile.Run(memory, file); }
    // `memory` gets Dim() bytes; what no byte of the file tells is zero, behaviour words too.
    void Decode(const uint8_t* file, uint8_t* memory) const { _toMemory.Run(file, memory); }
    // Where the field at a place of the memory form stands in the file form; kNone where the file does not
    // carry it.
    uint16_t PlaceInFile(uint16_t place) const { return _places[place]; }

private:
    // A map of bytes in as few moves as it takes: fields that are turned around, other bytes one by one.
    class Moves {
    public:
        Moves() = default;
        // For each byte of the result the one it comes from, or kNone for a zero.
        explicit Moves(const std::vector<uint16_t>& from);
        void Run(const uint8_t* from, uint8_t* to) const;
        uint32_t Size() const { return _size; }

    private:
        struct Move {
            uint16_t to, from;
        };
        std::vector<Move> _fours, _twos, _bytes;
        uint32_t _size = 0;
    };
    explicit FileForm(int16_t classNumber);

    Moves _toFile, _toMemory;
    std::vector<uint16_t> _places;
};

}  // namespace corvane
