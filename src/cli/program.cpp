#include "cli/program.h"

#include "cli/commands.h"
#include "cli/options.h"
#include "cli/project.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <map>
#include <optional>
#include <ostream>

namespace partwright::cli {

namespace {

constexpr const char* version = "partwright-cli " PARTWRIGHT_VERSION;

void addRecover(CLI::App& command, PlaceOptions& place) {
    command.add_flag("--recover", place.recover, "First complete saves that were interrupted");
}

/// Commands that open a project need its folder; the others take the options for scripts that give
/// every command the same ones.
void addPlace(CLI::App& command, PlaceOptions& place, bool project) {
    CLI::Option* library =
        command.add_option("--library", place.library, "Folder of the project's design libraries");
    library->required(project)->check([](const std::string& folder) {
        return folder.empty() ? std::string("The folder must not be empty") : std::string();
    });
    command.add_option("--input", place.input, "Folder of the project input file");
    command.add_option("--public", place.publicFolder,
                       "Folder of the public libraries (default: the setting PLibPath)");
    command.add_option("--host", place.host, "Design tool: 1 Altium, 2 OrCAD, 3 Mentor")
        ->check(CLI::Range(1, 3))
        ->capture_default_str();
    command.add_option("--program", place.program,
                       "Folder of the tables (default: worked out from the program's place)");
    command.add_flag("--json", place.json, "Answer as JSON");
    if (project)
        addRecover(command, place);
}

void addDropUnread(CLI::App& command, bool& flag) {
    command.add_flag("--drop-unread", flag,
                     "Write although lines that could not be read are lost by it");
}

void addFilter(CLI::App& command, std::string& name) {
    command
        .add_option("--filter", name,
                    "Parts that count: selected (Analyses: project), project or full "
                    "(default: as the page opens)")
        ->check(CLI::IsMember({"selected", "project", "full"}));
}

std::optional<FilterChoice> filterNamed(const std::string& name) {
    if (name.empty())
        return std::nullopt;
    if (name == "full")
        return FilterChoice::Full;
    return name == "project" ? FilterChoice::Project : FilterChoice::Selected;
}

/// Builds the command tree; the chosen command is left in `action`.
class Parser {
public:
    explicit Parser(Streams streams) : streams_(streams) {
        app_.set_version_flag("--version", version);
        app_.require_subcommand(1);
        addStatus();
        addCheck();
        addFill();
        addClassify();
        addDescribe();
        addConvert();
        addTables();
    }

    int run(std::vector<std::string> arguments) {
        std::reverse(arguments.begin(), arguments.end());
        try {
            app_.parse(arguments);
        } catch (const CLI::ParseError& error) {
            return app_.exit(error, streams_.out, streams_.err) == 0 ? Fine : Usage;
        }
        ConsolePrompt prompt(streams_.err);
        const int code = foldersAreThere(place_, opensProject_, prompt) ? action_() : Usage;
        streams_.out.flush();
        if (streams_.out)
            return code;
        streams_.err << "The answer could not be written.\n";
        return Findings;
    }

private:
    void addStatus() {
        CLI::App* command = app_.add_subcommand(
            "status", "Both libraries by group: how many parts, how many uncompleted");
        addPlace(*command, place_, true);
        addFilter(*command, filter_);
        command->callback([this] {
            status_.filter = filterNamed(filter_);
            opensProject_ = true;
            action_ = [this] { return runStatus(place_, status_, streams_); };
        });
    }

    void addCheck() {
        CLI::App* command = app_.add_subcommand(
            "check", "Every check of the windows over both libraries, one finding a line");
        addPlace(*command, place_, true);
        static const std::map<std::string, AnalysisLevel> levels = {
            {"asr", AnalysisLevel::SchematicReview},
            {"rapid", AnalysisLevel::Rapid},
            {"full", AnalysisLevel::Full}};
        command
            ->add_option("--level", level_,
                         "Columns of the Analyses library that count: asr, rapid or full")
            ->check(CLI::IsMember(levels))
            ->capture_default_str();
        command->callback([this] {
            check_.level = levels.at(level_);
            opensProject_ = true;
            action_ = [this] { return runCheck(place_, check_, streams_); };
        });
    }

    void addFill() {
        CLI::App* command = app_.add_subcommand(
            "fill", "Fill uncompleted parts from part numbers and descriptions, then save");
        addPlace(*command, place_, true);
        command->add_flag("--group-library", fill_.groupLibrary,
                          "Decode part numbers; a part that is known gets all its values anew");
        command->add_flag("--descriptions", fill_.descriptions,
                          "Parse descriptions; fills empty values only");
        command->add_flag("--sdta", fill_.sdta, "The SDTA library");
        command->add_flag("--analyses", fill_.analyses, "The Analyses library");
        command->add_flag("--dry-run", fill_.dryRun, "Show the changes and write nothing");
        addDropUnread(*command, fill_.dropUnread);
        addFilter(*command, filter_);
        command->callback([this] {
            fill_.filter = filterNamed(filter_);
            opensProject_ = true;
            action_ = [this] { return runFill(place_, fill_, streams_); };
        });
    }

    void addClassify() {
        CLI::App* command = app_.add_subcommand(
            "classify", "Group, type and values for lines refdes<TAB>description");
        addPlace(*command, place_, false);
        command->add_flag("--analyses", lines_.analyses, "Answer for the Analyses library");
        command->callback(
            [this] { action_ = [this] { return runClassify(place_, lines_, streams_); }; });
    }

    void addDescribe() {
        CLI::App* command =
            app_.add_subcommand("describe", "Descriptions for lines partNumber[<TAB>refdes]");
        addPlace(*command, place_, false);
        command->add_flag("--fill", lines_.fill,
                          "Add the group, type and values the description leads to");
        command->add_flag("--analyses", lines_.analyses, "Those of the Analyses library");
        command->callback(
            [this] { action_ = [this] { return runDescribe(place_, lines_, streams_); }; });
    }

    void addConvert() {
        CLI::App* command = app_.add_subcommand("convert", "Read a library and write it again");
        addPlace(*command, place_, false);
        addRecover(*command, place_);
        command->add_option("IN", convert_.in, "Library to read")->required();
        command->add_option("OUT", convert_.out, "Library to write")->required();
        command->add_option("--kind", kind_, "sdta or analyses")
            ->required()
            ->check(CLI::IsMember({"sdta", "analyses"}));
        addDropUnread(*command, convert_.dropUnread);
        command->callback([this] {
            convert_.analyses = kind_ == "analyses";
            action_ = [this] { return runConvert(place_, convert_, streams_); };
        });
    }

    void addTables() {
        CLI::App* command = app_.add_subcommand("tables", "Check every table against every other");
        addPlace(*command, place_, false);
        CLI::Option* coverage =
            command->add_flag("--coverage", tables_.coverage,
                              "Print what the tables cover, as Markdown, and check nothing");
        coverage->excludes("--json");
        command->callback(
            [this] { action_ = [this] { return runTables(place_, tables_, streams_); }; });
    }

    CLI::App app_{"Completes the parameters of a design's parts in two text libraries.",
                  "partwright-cli"};
    Streams streams_;
    PlaceOptions place_;
    StatusOptions status_;
    CheckOptions check_;
    FillOptions fill_;
    LineOptions lines_;
    ConvertOptions convert_;
    TablesOptions tables_;
    std::string filter_;
    std::string level_ = "full";
    std::string kind_;
    bool opensProject_ = false;
    std::function<int()> action_;
};

} // namespace

int run(std::vector<std::string> arguments, std::istream& in, std::ostream& out,
        std::ostream& err) {
    return Parser({in, out, err}).run(std::move(arguments));
}

} // namespace partwright::cli
