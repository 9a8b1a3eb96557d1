#include "app/options.h"

#include <CLI/CLI.hpp>
#include <filesystem>

namespace app {

namespace {

constexpr int kExitUsage = 2;

std::string FolderOfExecutable() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
}

std::string Absolute(const std::string& path) {
    return path.empty() ? path : std::filesystem::absolute(path).string();
}

void AddTerminalOptions(CLI::App& parser, Options& options) {
    parser.add_flag("--list", options.list, "Print the waiting data sets, one a line, and end");
    parser.add_option("--select", options.select, "Select the data set NAME; may be repeated")
        ->type_name("NAME")
        ->take_all()
        ->allow_extra_args(false);  // one value each; "[K1]" is a name, not a list
    parser.add_flag("--all", options.all, "Select every waiting data set");
    parser.add_flag("--unattended", options.unattended,
                    "Read no answers: default buttons and default texts");
}

constexpr const char* kFolderText =
    "The program folder: profile files and waiting data sets (default: the folder of the "
    "executable)";

// Names are what no option takes: declared as an option, "[K1]" would be a list.
void TakeNames(const CLI::App& command, Options& options) {
    options.names = command.remaining();
    for (const std::string& name : options.names) {
        if (name.starts_with('-')) throw CLI::ExtrasError(command.get_name(), {name});
    }
}

CLI::App& AddCommand(CLI::App& parser, const char* name, const char* text, Command command,
                     Options& options) {
    CLI::App& added = *parser.add_subcommand(name, text);
    added.add_option("--folder", options.folder, kFolderText)->type_name("DIR");
    added.add_flag("--json", options.json, "Print one JSON document instead of text");
    added.callback([&options, &added, command] {
        options.command = command;
        TakeNames(added, options);
    });
    return added;
}

void AddCommands(CLI::App& parser, Options& options) {
    parser.require_subcommand(0, 1);
    AddCommand(
        parser, "check",
        "[NAME...]: tell what would go wrong with these data sets, or with every waiting one",
        Command::Check, options)
        .allow_extras();
    AddCommand(parser, "explain", "CODE: explain the code of a finding", Command::Explain, options)
        .add_option("CODE", options.code, "The code, as K302")
        ->type_name("")
        ->required();
}

// What belongs to a run says nothing to a command.
void RefuseOptionsOfARun(const Options& options) {
    if (options.command == Command::Run) return;
    if (options.list || options.all || options.unattended || !options.select.empty() ||
        !options.journal.empty()) {
        throw CLI::ValidationError("a command takes no options of a run");
    }
}

}  // namespace

ParsedOptions ParseOptions(Program program, int argc, const char* const* argv) {
    const bool isTerminal = program == Program::Terminal;
    CLI::App parser("Day-end settlement server for the Kassovia point-of-sale system",
                    isTerminal ? "kvdayend" : "KVDayEndServer");
    parser.set_version_flag("--version", KV_VERSION);
    Options options;
    parser.add_option("--folder", options.folder, kFolderText)->type_name("DIR");
    parser.add_option("--journal", options.journal, "Append every operator-visible event to FILE")
        ->type_name("FILE");
    if (isTerminal) {
        AddTerminalOptions(parser, options);
        AddCommands(parser, options);
    }

    try {
        parser.parse(argc, argv);
        RefuseOptionsOfARun(options);
    } catch (const CLI::ParseError& outcome) {
        return {std::nullopt, parser.exit(outcome) == 0 ? 0 : kExitUsage};
    }
    options.folder = options.folder.empty() ? FolderOfExecutable() : Absolute(options.folder);
    options.journal = Absolute(options.journal);
    return {options, 0};
}

}  // namespace app
