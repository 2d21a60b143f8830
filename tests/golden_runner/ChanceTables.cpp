#include "Golden.h"
#include "simulation/SeededGenerator.h"

namespace tidewright::golden {

using simulation::SeededGenerator;

namespace {

/// The generator that the rows of one series share, new at the row with `index` 0.
SeededGenerator& continuing(SeededGenerator& generator, const Row& row) {
    if (row.integer("index") == 0) generator.state = row.hex("seed");
    return generator;
}

double draw(SeededGenerator& generator, const Row& row) {
    const double low = row.number("lo");
    const double high = row.number("hi");
    return row.text("kind") == "halfOpen" ? generator.halfOpen(low, high)
                                          : generator.closed(low, high);
}

void compareLongSequences(Table& table) {
    SeededGenerator generator;
    std::int64_t drawn = 0;
    std::string series;
    for (const Row& row : table.rows()) {
        if (const std::string own = row.text("seed") + row.text("lo") + row.text("hi");
            own != series || row.integer("drawsMade") <= drawn) {
            series = own;
            generator.state = row.hex("seed");
            drawn = 0;
        }
        double value = 0;
        for (; drawn < row.integer("drawsMade"); ++drawn)
            value = generator.closed(row.number("lo"), row.number("hi"));
        row.expectExactly("value", value);
        row.expectHex("stateAfter", generator.state);
    }
}

}  // namespace

void compareChance(Tables& tables) {
    SeededGenerator generator;
    for (const Row& row : tables["rng_next"].rows())
        row.expectHex("value", continuing(generator, row).next());
    for (const Row& row : tables["rng_draws"].rows()) {
        row.expectExactly("value", draw(continuing(generator, row), row));
        row.expectHex("stateAfter", generator.state);
    }
    for (const Row& row : tables["rng_bounded"].rows()) {
        row.expectNatural("value", continuing(generator, row).bounded(row.natural("n")));
        row.expectHex("stateAfter", generator.state);
    }
    for (const Row& row : tables["rng_forced"].rows()) {
        generator.state = row.hex("seed");
        SeededGenerator first = generator;
        row.expectHex("firstOutput", first.next());
        row.expectExactly("value", draw(generator, row));
        row.expectHex("stateAfter", generator.state);
    }
    compareLongSequences(tables["rng_closed_long"]);
}

}  // namespace tidewright::golden
