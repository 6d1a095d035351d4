#include "session/ScriptRunner.h"

#include <charconv>
#include <cstring>
#include <sstream>
#include <vector>

#include "edit/CommandTable.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "session/Dumps.h"
#include "session/NewScoreRules.h"
#include "session/Session.h"

namespace corvane {
namespace {

using Words = std::vector<std::string>;

Status Refused(std::string why) { return {Fault::Refused, std::move(why)}; }

// Words between blanks; a comment ends the line; "double quotes" keep blanks together.
Words Split(const std::string& line) {
    Words words;
    std::string word;
    bool quoted = false, any = false;
    for (const char c : line + " ") {
        if (c == '"') {
            quoted = !quoted;
            any = true;
        } else if (!quoted && c == '#' && !any) {
            break;
        } else if (quoted || (c != ' ' && c != '\t' && c != '\r')) {
            word += c;
            any = true;
        } else if (any) {
            words.push_back(word);
            word.clear();
            any = false;
        }
    }
    return words;
}

bool ParseNumber(const std::string& text, int& value) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end && !text.empty();
}

// The numbers of words[from..from + values.size()).
Status TakeNumbers(const Words& words, size_t from, std::initializer_list<int*> values) {
    size_t i = from;
    for (int* value : values) {
        if (i >= words.size()) return Refused("a number is missing");
        if (!ParseNumber(words[i], *value)) return Refused("\"" + words[i] + "\" is no whole number");
        ++i;
    }
    return Status::Ok();
}

Status TakeModifiers(const Words& words, size_t from, uint32_t& modifiers) {
    constexpr struct {
        const char* name;
        uint32_t bit;
    } kNames[] = {{"shift", kShift}, {"ctrl", kCtrl}, {"alt", kAlt}};
    for (size_t i = from; i < words.size(); ++i) {
        bool known = false;
        for (const auto& name : kNames)
            if (words[i] == name.name) {
                modifiers |= name.bit;
                known = true;
            }
        if (!known) return Refused("\"" + words[i] + "\" is no modifier");
    }
    return Status::Ok();
}

}  // namespace

// The steps, a function each: `words` holds the step's name first.
struct ScriptSteps {
    Session& session;
    const Exporter& exporter;
    std::string& out;

    WindowTarn* Window() const { return WindowTarn::instance; }

    Status New(const Words& words) {
        PageLayout layout = session.UsualLayout();
        const std::string staffs = words.size() > 1 ? words[1] : session.Preferences().staffString;
        if (words.size() > 2)
            if (Status status = TakeNumbers(words, 2, {&layout.measuresPerSystem}); !status) return status;
        if (words.size() > 3)
            if (Status status = TakeNumbers(words, 3, {&layout.systemsPerPage}); !status) return status;
        if (Status status = CheckNewScore(layout, staffs); !status) return status;
        session.NewScore(layout, staffs)->Activate();
        return Status::Ok();
    }
    Status Open(const Words& words) {
        if (words.size() != 2) return Refused("open wants a path");
        Status status;
        if (WindowTarn* window = session.Open(words[1], status)) window->Activate();
        return status;
    }
    Status Save(const Words& words) {
        const std::string path = words.size() > 1 ? words[1] : Window()->Path();
        return session.Save(*Window(), path);
    }
    Status Export(const Words& words) {
        int page = 0;
        if (words.size() < 2) return Refused("export wants a path");
        if (words.size() > 2)
            if (Status status = TakeNumbers(words, 2, {&page}); !status) return status;
        return exporter(*Window(), words[1], page, GraphicPort::kTrueSizeZoom);
    }
    Status Tool(const Words& words) {
        constexpr struct {
            const char* name;
            int32_t mode;
        } kTools[] = {{"arrow", ModeArrow}, {"pencil", ModePencil}, {"eraser", ModeEraser}};
        for (const auto& tool : kTools)
            if (words.size() == 2 && words[1] == tool.name) {
                SetToolMode(tool.mode);
                ApplyToolMode();
                return Status::Ok();
            }
        return Refused("tool wants arrow, pencil or eraser");
    }
    Status Item(const Words& words) {
        int group = 0, item = 0;
        if (Status status = TakeNumbers(words, 1, {&group, &item}); !status) return status;
        if (group < 1 || group > 11 || item < 1 || item > 99) return Refused("there is no such palette item");
        SetPaletteGroup(static_cast<uint8_t>(group));
        SetItem(static_cast<uint16_t>(item));
        return Status::Ok();
    }
    Status Voice(const Words& words) {
        int voice = 0;
        if (Status status = TakeNumbers(words, 1, {&voice}); !status) return status;
        if (voice < 0 || voice > DocStaff::kVoices) return Refused("voices are 0 (all) to 8");
        SetCurrentVoice(static_cast<uint16_t>(voice));
        return Status::Ok();
    }
    Status Press(const Words& words) {
        int x = 0, y = 0;
        uint32_t modifiers = 0;
        if (Status status = TakeNumbers(words, 1, {&x, &y}); !status) return status;
        if (Status status = TakeModifiers(words, 3, modifiers); !status) return status;
        MouseDown(*Window(), x, y, modifiers);
        MouseUp(*Window(), x, y);
        return Status::Ok();
    }
    Status Drag(const Words& words) {
        int x = 0, y = 0, toX = 0, toY = 0;
        uint32_t modifiers = 0;
        if (Status status = TakeNumbers(words, 1, {&x, &y, &toX, &toY}); !status) return status;
        if (Status status = TakeModifiers(words, 5, modifiers); !status) return status;
        MouseDown(*Window(), x, y, modifiers);
        MouseMove(*Window(), (x + toX) / 2, (y + toY) / 2);
        MouseUp(*Window(), toX, toY);
        return Status::Ok();
    }
    Status DoubleClick(const Words& words) {
        int x = 0, y = 0;
        if (Status status = TakeNumbers(words, 1, {&x, &y}); !status) return status;
        MouseDoubleClick(*Window(), x, y, 0);
        MouseUp(*Window(), x, y);
        return Status::Ok();
    }
    // Types into what a press of a text item, or a double click, has begun.
    Status Text(const Words& words) {
        if (words.size() != 2) return Refused("text wants one text, in quotation marks where it has blanks");
        std::string text = words[1];
        for (size_t at; (at = text.find("\\n")) != std::string::npos;) text.replace(at, 2, "\n");
        return TypeText(*Window(), text);
    }
    Status Key(const Words& words) {
        if (words.size() != 2) return Refused("key wants characters");
        for (const char c : words[1]) KeyChar(*Window(), c);
        return Status::Ok();
    }
    Status Command(const Words& words) {
        int id = 0;
        CommandArguments arguments;
        if (Status status = TakeNumbers(words, 1, {&id}); !status) return status;
        for (size_t i = 2; i < words.size(); ++i) {
            const size_t equals = words[i].find('=');
            if (equals == std::string::npos) return Refused("\"" + words[i] + "\" is no name=value");
            arguments[words[i].substr(0, equals)] = words[i].substr(equals + 1);
        }
        return RunCommand(*Window(), id, arguments);
    }
    Status Undo(const Words&) {
        Window()->Undo();
        return Status::Ok();
    }
    Status Redo(const Words&) {
        Window()->Redo();
        return Status::Ok();
    }
    Status Page(const Words& words) {
        int number = 0;
        if (Status status = TakeNumbers(words, 1, {&number}); !status) return status;
        for (corvane::Page* page : documentPages.Of(Window()->GetDocument()))
            if (page->_pageNumber == number) {
                Window()->SetCurrentPage(page);
                return Status::Ok();
            }
        return Refused("there is no page " + words[1]);
    }
    Status Dump(const Words& words) { return DumpScore(*Window(), words.size() > 1 ? words[1] : "", out); }
};

namespace {

constexpr struct {
    const char* name;
    Status (ScriptSteps::*run)(const Words&);
    bool needsScore = true;
} kSteps[] = {
    {"new", &ScriptSteps::New, false},     {"open", &ScriptSteps::Open, false},
    {"save", &ScriptSteps::Save},          {"export", &ScriptSteps::Export},
    {"tool", &ScriptSteps::Tool, false},   {"item", &ScriptSteps::Item, false},
    {"voice", &ScriptSteps::Voice, false}, {"press", &ScriptSteps::Press},
    {"drag", &ScriptSteps::Drag},          {"doubleclick", &ScriptSteps::DoubleClick},
    {"text", &ScriptSteps::Text},          {"key", &ScriptSteps::Key},
    {"command", &ScriptSteps::Command},    {"undo", &ScriptSteps::Undo},
    {"redo", &ScriptSteps::Redo},          {"page", &ScriptSteps::Page},
    {"dump", &ScriptSteps::Dump},
};

}  // namespace

ScriptRunner::ScriptRunner(Session& session, Exporter exporter, std::string& out)
    : _session(session), _exporter(std::move(exporter)), _out(out) {}

Status ScriptRunner::Step(const std::string& line) {
    const Words words = Split(line);
    if (words.empty()) return Status::Ok();
    for (const auto& step : kSteps) {
        if (words[0] != step.name) continue;
        if (step.needsScore && !WindowTarn::instance) return Refused("no score is open");
        ScriptSteps steps{_session, _exporter, _out};
        return (steps.*step.run)(words);
    }
    return Refused("\"" + words[0] + "\" is no step");
}

Status ScriptRunner::Run(const std::string& text) {
    std::istringstream lines(text);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number)
        if (const Status status = Step(line); !status)
            return {status.fault(), "line " + std::to_string(number) + ": " + status.message()};
    return Status::Ok();
}

}  // namespace corvane
