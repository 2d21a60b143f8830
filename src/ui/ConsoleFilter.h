#pragma once

#include <QString>

#include "gateway/ConsoleLog.h"

namespace tidewright::ui {

/// Which of the console's lines the reader wants to see.
struct ConsoleFilter {
    QString transport;  ///< "SYS", "TCP" or "UDP"; empty: all three
    QString words;      ///< separated by blanks; a line must hold each of them

    /// A word of capital letters, as in "RMC" or "AIVDM", is looked for in the name of a sentence,
    /// so that it is not found by chance in what an AIS message holds. Any other word may stand
    /// anywhere in the text, in capitals or not; in a line that is no sentence so may a word of
    /// capitals.
    bool passes(const gateway::ConsoleLine& line) const;

    bool operator==(const ConsoleFilter&) const = default;
};

}  // namespace tidewright::ui
