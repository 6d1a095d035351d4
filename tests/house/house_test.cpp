#include "house/House.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace corvane::house {
namespace {

std::string Joined(const std::vector<std::string>& lines) {
    std::string result;
    for (const std::string& line : lines) result += line + "\n";
    return result;
}

// A small house in order: two floors beside each other, one on both, the outside, the window.
Files SmallHouse() {
    return {
        {"base/CMakeLists.txt", "corvane_floor(base)"},
        {"store/CMakeLists.txt", "corvane_floor(store corvane_base)"},
        {"graphics/CMakeLists.txt", "corvane_floor(graphics corvane_base)"},
        {"model/CMakeLists.txt",
         "# not corvane_floor(model corvane_cli)\ncorvane_floor(model corvane_store\n  corvane_graphics)"},
        {"session/CMakeLists.txt", "corvane_floor(session corvane_model)"},
        {"platform/freetype/CMakeLists.txt", "corvane_floor(freetype corvane_graphics)"},
        {"platform/qt/CMakeLists.txt", "corvane_floor(qt corvane_graphics corvane_freetype Qt6::Gui)"},
        {"platform/timer/CMakeLists.txt", "corvane_floor(timer corvane_base)"},
        {"shell/CMakeLists.txt", "corvane_floor(shell corvane_session corvane_qt)"},
        {"cli/CMakeLists.txt",
         "add_executable(corvane main.cpp)\ntarget_link_libraries(corvane PRIVATE corvane_shell)"},
        {"base/Status.h", "#pragma once\n#include <string>\n"},
        {"base/Space.cpp", "#include \"base/Status.h\"\n#include <sys/mman.h>\n"},
        {"model/Note.h",
         "#include \"store/Pool.h\"\n#include \"graphics/Port.h\"\n#include \"base/Status.h\"\n"},
        {"platform/qt/Port.cpp", "#include <QPainter>\n#include \"platform/freetype/Measures.h\"\n"},
        {"shell/Window.cpp",
         "#include <QtWidgets/QMenu>\n#include \"model/Note.h\"\n#include \"Window.moc\"\n"},
        {"cli/main.cpp", "#include <CLI/CLI.hpp>\n#include \"shell/Window.h\"\n#include <unistd.h>\n"},
    };
}

TEST(House, EveryKindOfDisorderIsNamed) {
    ASSERT_EQ(Joined(House(SmallHouse()).Faults()), "");
    const struct {
        const char* why;
        const char* path;
        std::string text;
        const char* expected;
    } cases[] = {
        {"upward", "store/A.h", "#pragma once\n#include \"model/Note.h\"\n",
         "store/A.h:2 includes model/Note.h, but store does not stand on model"},
        {"sideways", "graphics/A.h", "  #  include \"store/Pool.h\"  // why not",
         "graphics/A.h:1 includes store/Pool.h, but graphics does not stand on store"},
        {"lower, but not linked to", "platform/timer/A.cpp", "#include \"model/Note.h\"",
         "platform/timer/A.cpp:1 includes model/Note.h, but platform/timer does not stand on model"},
        {"another folder of the platform", "platform/timer/A.cpp", "#include \"platform/qt/Port.h\"",
         "platform/timer/A.cpp:1 includes platform/qt/Port.h, but platform/timer does not stand on "
         "platform/qt"},
        {"the engine and the outside", "session/A.cpp", "#include \"platform/qt/Port.h\"",
         "session/A.cpp:1 includes platform/qt/Port.h, but session does not stand on platform/qt"},
        {"round about", "base/A.h", "#include \"../model/Note.h\"",
         "base/A.h:1 includes ../model/Note.h, which is no path from src/"},
        {"a library in the engine", "model/A.cpp", "#include <QString>",
         "model/A.cpp:1 includes QString, a library out of its place"},
        {"an unknown header in the engine", "model/A.cpp", "#include <boost/any.hpp>",
         "model/A.cpp:1 includes boost/any.hpp, a library out of its place"},
        {"a library in another's folder", "shell/A.cpp", "#include <fluidsynth.h>",
         "shell/A.cpp:1 includes fluidsynth.h, a library out of its place"},
        {"a link that goes up", "store/CMakeLists.txt", "corvane_floor(store corvane_base corvane_model)",
         "store links up to model"},
        {"a file on no floor", "utils/A.h", "", "utils/A.h stands on no floor"},
        {"a line too long", "model/A.cpp", std::string(401, '\n'), "model/A.cpp has 401 lines"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Files files = SmallHouse();
        files[c.path] = c.text;
        EXPECT_EQ(Joined(House(files).Faults()), std::string(c.expected) + "\n");
    }
}

TEST(House, FilesOfAsManyLinesAsAllowedPass) {
    Files files = SmallHouse();
    files["model/A.cpp"] = std::string(400, '\n');
    EXPECT_EQ(Joined(House(files).Faults()), "");
}

TEST(House, OurOwnIsInOrder) {
    const Files files = ReadFiles(CORVANE_SOURCE_DIR "/src");
    const auto floorsFound = std::count_if(files.begin(), files.end(), [](const auto& file) {
        return file.second.find("corvane_floor(") != std::string::npos;
    });
    ASSERT_GE(floorsFound, 15) << "the scan found too little to mean anything";
    ASSERT_TRUE(files.contains("base/Status.h"));
    EXPECT_EQ(Joined(House(files).Faults()), "");
}

}  // namespace
}  // namespace corvane::house
