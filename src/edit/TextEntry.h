// A text while it is typed, wherever the keys come from: the shell shows an editor over its place, a script
// gives it at once. Nothing of the score changes before it is taken. It names records, so it never outlives a
// change of the score that is not its own: WindowTarn drops it then.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/Geometry.h"
#include "base/Status.h"
#include "model/Texts.h"

namespace corvane {

class WindowTarn;

// Keys that may end one text and begin the next.
enum class TextKey { Space, Hyphen, Underscore, Up, Down, Back };

class TextEntry {
public:
    virtual ~TextEntry() = default;
    // What stands there now, how it looks, where its baseline begins (page units), and the most bytes it may
    // have.
    virtual std::string Text() const = 0;
    virtual TextLook Look() const = 0;
    virtual Point Place() const = 0;
    virtual size_t MostBytes() const { return kMostTextBytes; }
    virtual bool HasLines() const { return true; }
    // Stores the text as one undoable step; an empty one takes away what stands there. No step where nothing
    // changes.
    virtual void Take(WindowTarn& window, std::string_view text, const TextLook& look) = 0;
    // Whether a key ends this text rather than being a letter of it.
    virtual bool EndsWith(TextKey) const { return false; }
    // Stores the text as ended by that key; gives what is typed next, null for nothing.
    virtual std::unique_ptr<TextEntry> TakeAndGoOn(WindowTarn&, std::string_view, TextKey) { return nullptr; }
};

struct System;

// Where a press of the text palette's items asks for a text: a new one, or the one that stands there.
void BeginTextAt(WindowTarn& window, System* system, Point p, int item);
// The text under a point; false, and nothing done, where there is none.
bool BeginTextUnder(WindowTarn& window, Point p);
void BeginText(WindowTarn& window, std::unique_ptr<TextEntry> entry);

// Each does nothing where nothing is being typed.
void EndText(WindowTarn& window, std::string_view text, const std::optional<TextLook>& look = {});
void CancelText(WindowTarn& window);
// True if the key ended the text; it is a letter else.
bool TypeTextKey(WindowTarn& window, std::string_view text, TextKey key);
// A whole text with the keys in it, then the end; "\n" begins a line. Refused where nothing is being typed,
// or where a song ends before its text.
Status TypeText(WindowTarn& window, std::string_view text);

}  // namespace corvane
