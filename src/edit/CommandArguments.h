// The name=value arguments of a command, read with their ranges. The first thing that is wrong stays as the
// refusal.
#pragma once

#include <map>
#include <string>

#include "base/Status.h"

namespace corvane {

using CommandArguments = std::map<std::string, std::string>;

class ArgumentReader {
public:
    // The arguments must outlive it.
    explicit ArgumentReader(const CommandArguments& arguments) : _arguments(arguments) {}
    explicit ArgumentReader(CommandArguments&&) = delete;

    bool Has(const char* name) const { return _arguments.count(name) != 0; }
    // A whole number from `least` to `most`. Without the argument: `fallback`, or refused where it is
    // required.
    int Number(const char* name, int least, int most, int fallback);
    int Number(const char* name, int least, int most);  // required
    // A number with a point; `fallback` without the argument.
    double Decimal(const char* name, double least, double most, double fallback);
    // A text as it stands; `fallback` without the argument.
    std::string Text(const char* name, const std::string& fallback = {});
    // The place of a word in a list; refused for another word.
    int Choice(const char* name, std::initializer_list<const char*> words, int fallback);
    // Refused where an argument was given that nobody has asked for.
    Status Result();
    // What was read makes no sense, for a reason that the caller knows.
    void Refuse(std::string why);

private:
    const CommandArguments& _arguments;
    std::map<std::string, bool> _asked;
    Status _status;
};

}  // namespace corvane
