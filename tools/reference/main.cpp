// Prints one piece of the documents, from the lists of options and settings:
//
//     tidewright_reference options|manual|manual-fr|bash|zsh|fish|settings

#include <fmt/format.h>

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "app/Option.h"
#include "gateway/Assembly.h"
#include "platform/SystemRandom.h"
#include "platform/VirtualMainLoop.h"

using namespace tidewright;
using app::allOptions;
using app::BothLanguages;
using app::Option;

namespace {

bool takesValue(const Option& option) {
    return !option.valueName.french.empty();
}

std::string replaced(std::string text, std::string_view what, std::string_view with) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

// Markdown.

std::string code(std::string_view text) {
    return text.empty() ? "" : fmt::format("`{}`", text);
}

std::string optionsTable() {
    std::string table = "| option | effect | default |\n|---|---|---|\n";
    for (const Option& each : allOptions()) {
        std::string words;
        for (const std::string& word : each.words)
            words += (words.empty() ? ": " : ", ") + code(word);
        table +=
            fmt::format("| `{}{}{}` | {}{} | {} |\n", each.name, takesValue(each) ? " " : "",
                        each.valueName.english, each.effect.english, words, code(each.otherwise));
    }
    return table;
}

std::string settingsTable() {
    platform::VirtualMainLoop loop;
    platform::SystemRandom random;
    const gateway::Assembly fresh(gateway::Host::machine(loop, loop, random, {}));
    std::string table;
    std::string group;
    for (const gateway::Setting& each : fresh.settings.all()) {
        if (each.group != group) {
            group = each.group;
            table += fmt::format(
                "{}**{}**\n\n| name | kind | default | range or choices | acts | label |\n"
                "|---|---|---|---|---|---|\n",
                table.empty() ? "" : "\n", group);
        }
        table += fmt::format("| `{}` | {} | {} | {} | {} | {} |\n", each.name, rawValue(each.kind),
                             code(gateway::textOf(each.initial)), each.rangeText(),
                             rawValue(each.acts), each.label);
    }
    return table;
}

// Manual pages.

std::string roff(std::string_view text) {
    return replaced(std::string(text), "-", "\\-");
}

std::string manual(std::string_view BothLanguages::*language, std::string_view alone) {
    std::string page;
    for (const bool questions : {false, true}) {
        if (questions) page += fmt::format(".PP\n{}\n", alone);
        for (const Option& each : allOptions()) {
            if (each.isQuestion != questions) continue;
            const std::string_view value = each.valueName.*language;
            page += value.empty() ? fmt::format(".TP\n.B {}\n", roff(each.name))
                                  : fmt::format(".TP\n.BI {} \" {}\"\n", roff(each.name), value);
            page += each.effect.*language;
            if (!each.otherwise.empty()) page += fmt::format(" ({})", each.otherwise);
            if (!each.words.empty()) page += fmt::format(": {}", fmt::join(each.words, ", "));
            page += "\n";
        }
    }
    return page;
}

// Completions.

std::string bash() {
    std::string cases;
    std::string free;
    std::string files;
    std::string names;
    for (const Option& each : allOptions()) {
        names += fmt::format("{}{}", names.empty() ? "" : " ", each.name);
        if (!takesValue(each)) continue;
        if (!each.words.empty()) {
            cases +=
                fmt::format("        {}) words=\"{}\" ;;\n", each.name, fmt::join(each.words, " "));
            continue;
        }
        std::string& others = each.takesFile ? files : free;
        others += fmt::format("{}{}", others.empty() ? "" : " | ", each.name);
    }
    return fmt::format(R"(# bash completion for tidewright

_tidewright() {{
    local word=${{COMP_WORDS[COMP_CWORD]}} before=${{COMP_WORDS[COMP_CWORD - 1]}} words
    case $before in
{}        {})
            mapfile -t COMPREPLY < <(compgen -f -- "$word")
            return
            ;;
        {}) words= ;;
        *) words="{}" ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}}
complete -F _tidewright tidewright
)",
                       cases, files, free, names);
}

std::string zsh() {
    std::string lines;
    for (const Option& each : allOptions()) {
        const std::string effect = replaced(std::string(each.effect.french), "'", "’");
        lines += fmt::format(" \\\n    '{}{}[{}]", each.mayRepeat ? "*" : "", each.name, effect);
        if (takesValue(each)) lines += fmt::format(":{}:", each.valueName.french);
        if (each.takesFile) lines += "_files";
        if (!each.words.empty()) lines += fmt::format("({})", fmt::join(each.words, " "));
        lines += "'";
    }
    return "#compdef tidewright\n\n_arguments" + lines + "\n";
}

std::string fish() {
    std::string lines = "complete -c tidewright -f\n";
    for (const Option& each : allOptions()) {
        const std::string_view value = each.takesFile ? " -r -F" : " -x";
        lines += fmt::format("complete -c tidewright -l {}{} -d \"{}\"", each.name.substr(2),
                             takesValue(each) ? value : "", each.effect.french);
        if (!each.words.empty()) lines += fmt::format(" -a '{}'", fmt::join(each.words, " "));
        lines += "\n";
    }
    return lines;
}

const std::map<std::string_view, std::function<std::string()>> pieces{
    {"options", optionsTable},
    {"manual",
     [] { return manual(&BothLanguages::english, "Without\n.B \\-\\-headless\nas well:"); }},
    {"manual-fr",
     [] { return manual(&BothLanguages::french, "Sans\n.B \\-\\-headless\naussi :"); }},
    {"bash", bash},
    {"zsh", zsh},
    {"fish", fish},
    {"settings", settingsTable}};

}  // namespace

int main(int count, char** arguments) {
    const auto piece = pieces.find(count == 2 ? arguments[1] : "");
    if (piece == pieces.end()) {
        std::fputs("usage: tidewright_reference PIECE\n", stderr);
        return 2;
    }
    return std::fputs(piece->second().c_str(), stdout) < 0 ? 1 : 0;
}
