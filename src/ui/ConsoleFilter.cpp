#include "ui/ConsoleFilter.h"

#include <QStringList>
#include <algorithm>

#include "ui/Texts.h"

namespace tidewright::ui {

namespace {

bool isSentenceName(const QString& word) {
    return std::ranges::all_of(
        word, [](QChar each) { return each >= QLatin1Char('A') && each <= QLatin1Char('Z'); });
}

/// The name of a sentence, as in "GPRMC"; nothing for other texts.
QString sentenceName(const QString& text) {
    if (!text.startsWith(QLatin1Char('$')) && !text.startsWith(QLatin1Char('!'))) return {};
    return text.mid(1, text.indexOf(QLatin1Char(',')) - 1);
}

}  // namespace

bool ConsoleFilter::passes(const gateway::ConsoleLine& line) const {
    if (!transport.isEmpty() && toQt(line.transport) != transport) return false;
    const QString text = toQt(line.text);
    const QString name = sentenceName(text);
    return std::ranges::all_of(words.simplified().split(QLatin1Char(' ')),
                               [&](const QString& word) {
                                   if (!name.isEmpty() && isSentenceName(word))
                                       return name.contains(word);
                                   return text.contains(word, Qt::CaseInsensitive);
                               });
}

}  // namespace tidewright::ui
