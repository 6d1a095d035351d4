// The outcome of what a file, a device or a person can make fail. Cheap when it went well.
#pragma once

#include <string>
#include <utility>

namespace corvane {

enum class Fault {
    None,
    NotFound,     // a path that cannot be read
    ReadOnly,     // a path that cannot be written
    Damaged,      // bytes that are no valid score, MIDI file, setting
    Refused,      // a request that makes no sense for this score
    Unsupported,  // an extension or kind that we do not handle
    NoSpace,      // disk or memory ran out
};

class [[nodiscard]] Status {
public:
    Status() = default;
    // `message` is the sentence that a person reads.
    Status(Fault fault, std::string message) : _fault(fault), _message(std::move(message)) {}

    static Status Ok() { return {}; }
    bool ok() const { return _fault == Fault::None; }
    explicit operator bool() const { return ok(); }
    Fault fault() const { return _fault; }
    const std::string& message() const { return _message; }

private:
    Fault _fault = Fault::None;
    std::string _message;
};

}  // namespace corvane
