// The command line: GNU habits; exit 0 done, 1 refused with one line on stderr, 2 usage.
#include <CLI/CLI.hpp>
#include <functional>

#include "cli/ImportArguments.h"
#include "cli/Program.h"
#include "shell/ScoreExport.h"

namespace corvane {
namespace {

const CLI::Range kZooms(5, 1600);

struct Choice {
    std::function<int()> run;
};

CLI::App* Subcommand(CLI::App& app, const char* name, const std::string& what, Choice& choice,
                     std::function<int()> run) {
    CLI::App* sub = app.add_subcommand(name, what);
    sub->callback([&choice, run = std::move(run)] { choice.run = run; });
    return sub;
}

void AddFileCommands(CLI::App& app, Choice& choice) {
    static NewOptions create;
    CLI::App* sub = Subcommand(app, "new", "Make an empty score", choice, [] { return RunNew(create); });
    sub->add_option("OUT", create.out, "The score file to write")->required();
    sub->add_option("--staves", create.staves,
                    "Staves from the top: S single, D pair, B bass, E percussion, C custom")
        ->capture_default_str();
    sub->add_option("--measures", create.measures, "Measures in a system")->capture_default_str();
    sub->add_option("--systems", create.systems, "Systems on a page")->capture_default_str();

    static ConvertOptions convert;
    const std::string written = Listed(WrittenExtensions(), "or");
    sub = Subcommand(app, "convert", "Write a score or a MIDI file as " + written, choice,
                     [] { return RunConvert(convert); });
    sub->add_option("FILES", convert.files,
                    "IN and OUT: a file to read (" + Listed(ReadExtensions(), "or") +
                        "), and the file to write, whose extension tells the kind; with --out-dir any number "
                        "of files to read")
        ->required();
    sub->add_option("--out-dir", convert.outDir, "Write all files into this folder, under their own names");
    sub->add_option("--to", convert.to, "The kind to write into the folder: " + written);
    sub->add_option("--jobs", convert.jobs,
                    "How many to convert at once; 0: as many as the machine has cores")
        ->check(CLI::Range(0, 1024))
        ->capture_default_str();
    sub->add_option("--page", convert.page, "Only this page, from 1")->check(CLI::Range(1, 32767));
    sub->add_option("--zoom", convert.zoom,
                    "Percent, for png; " + std::to_string(GraphicPort::kTrueSizeZoom) + " is true size")
        ->check(kZooms)
        ->capture_default_str();
    AddImportOptions(*sub, convert.import);
}

void AddScoreCommands(CLI::App& app, Choice& choice) {
    static std::string file;
    static bool json = false;
    static PlayOptions play;
    CLI::App* sub =
        Subcommand(app, "info", "Tell what a score holds", choice, [] { return RunInfo(file, json); });
    sub->add_option("FILE", file, "A score file")->required();
    sub->add_flag("--json", json, "As one JSON object");
    sub = Subcommand(app, "check", "Prove the whole graph of a score file and print its first faults", choice,
                     [] { return RunCheck(file); });
    sub->add_option("FILE", file, "A score file")->required();
    sub = Subcommand(app, "play", "Play a score", choice, [] { return RunPlay(play); });
    sub->add_option("FILE", play.file, "A score file")->required();
    sub->add_flag("--dry", play.dry,
                  "On a simulated clock: print each message as TICK PORT STATUS DATA1 DATA2");
    sub->add_option("--from", play.from, "The measure to begin with")->capture_default_str();
    sub->add_flag("--texts", play.texts, "Follow D.C., D.S., Coda and Fine");
    sub->add_flag("--click", play.click, "With a click on the built-in synthesiser");
    sub->add_option("--count-off", play.countOff, "Measures that the click counts off")
        ->check(CLI::Range(0, 9));
    Subcommand(app, "devices", "List MIDI inputs and outputs", choice, [] { return RunDevices(); });
    static std::string sheet;
    static int zoom = 160;
    sub = Subcommand(app, "symbols", "Draw every symbol on a staff, with its name", choice,
                     [] { return RunSymbols(sheet, zoom); });
    sub->add_option("OUT", sheet, "The picture to write: png, pdf or svg")->required();
    sub->add_option("--zoom", zoom, "Percent, for png")->check(kZooms)->capture_default_str();
    static std::string script = "-";
    sub =
        Subcommand(app, "script", "Run editing steps, one a line", choice, [] { return RunScript(script); });
    sub->add_option("FILE", script, "The steps; - for standard input")->capture_default_str();
}

int Main(int argc, char** argv) {
    CLI::App app{"Corvane, a music-notation editor. Without a subcommand it opens its window.", "corvane"};
    Choice choice;
    std::vector<std::string> files;
    app.set_version_flag("--version", std::string("corvane ") + kVersion);
    app.add_option("FILES", files, "Scores to open");
    app.require_subcommand(0, 1);
    AddFileCommands(app, choice);
    AddScoreCommands(app, choice);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error);
        return code == 0 ? kDone : kUsage;
    }
    return choice.run ? choice.run() : RunEditor(files, argc, argv);
}

}  // namespace
}  // namespace corvane

int main(int argc, char** argv) { return corvane::Main(argc, argv); }
