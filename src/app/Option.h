#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "gateway/SimulationConfig.h"
#include "simulation/BoatSimulationEngine.h"

namespace tidewright::app {

/// A text in the two languages of the manuals.
struct BothLanguages {
    std::string_view french;
    std::string_view english;
};

/// One option of the command line, declared once: parsing, --help, the manuals, the completions and
/// the README's table come from it.
struct Option {
    std::string_view name;         ///< with its dashes
    BothLanguages valueName = {};  ///< what stands for its value, in capitals; empty: it takes none
    BothLanguages effect;          ///< without a full stop
    std::string_view otherwise = {};      ///< what holds without it; empty: nothing to say
    std::vector<std::string> words = {};  ///< what its value may be, where that is one of a few

    bool takesFile = false;  ///< its value is a path

    /// Where it counts: for --headless, or alone, as a question that the program answers.
    bool isQuestion = false;

    /// Has the whole command line read strictly.
    bool isStrict = false;
    bool mayRepeat = false;

    /// Whether `text` can be read as its value.
    bool (*reads)(const std::string& text) = nullptr;

    /// What can be read, in French, to stand after "il faut".
    std::string_view readable = {};

    /// Takes a value that can be read, or the option's mere presence; nothing where the option is
    /// taken elsewhere.
    void (*apply)(const std::string& text, gateway::SimulationConfig& config,
                  simulation::BoatSimulationEngine& engine) = nullptr;
};

/// Every option, in the order in which they are applied and listed.
const std::vector<Option>& allOptions();

/// Null where there is none of that name.
const Option* option(std::string_view name);

}  // namespace tidewright::app
