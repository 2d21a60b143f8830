#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace tidewright {

/// While this lives the program counts as a Frenchman writes: a comma before the decimals, a dot
/// between the thousands. The C library follows where the machine knows such a country.
class ForeignNumbers {
public:
    ForeignNumbers() {
        for (const char* country : {"fr_FR.UTF-8", "fr_FR.utf8", "de_DE.UTF-8", "de_DE.utf8"})
            if (std::setlocale(LC_ALL, country) != nullptr) break;
    }
    ~ForeignNumbers() {
        std::locale::global(previous_);
        std::setlocale(LC_ALL, previousCountry_.c_str());
    }
    ForeignNumbers(const ForeignNumbers&) = delete;
    ForeignNumbers& operator=(const ForeignNumbers&) = delete;

private:
    struct Punctuation : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::string previousCountry_ = std::setlocale(LC_ALL, nullptr);
    std::locale previous_ =
        std::locale::global(std::locale(std::locale::classic(), new Punctuation));
};

}  // namespace tidewright
