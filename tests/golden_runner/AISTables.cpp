#include <string>

#include "BoatStateRow.h"
#include "Golden.h"
#include "encoding/AISEncoder.h"
#include "encoding/BitWriter.h"

namespace tidewright::golden {

using encoding::AISEncoder;
using encoding::BitWriter;

namespace {

/// Performs writes such as "u:5:3 s:HELLO:5": kind, value, count.
void write(BitWriter& bits, const std::string& writes) {
    for (const std::string& each : split(writes, ' ')) {
        const auto last = each.rfind(':');
        const std::string value = each.substr(2, last - 2);
        const int count = std::stoi(each.substr(last + 1));
        if (each.front() == 'u')
            bits.append(std::stoull(value), count);
        else
            bits.appendString(value, count);
    }
}

/// The bits behind the armour, as zeros and ones.
std::string disarmored(const encoding::ArmoredBits& armored) {
    std::string bits;
    for (const char each : armored.text) {
        const int value = each - (each < 88 ? 48 : 56);
        for (int bit = 5; bit >= 0; --bit) bits += (value >> bit & 1) != 0 ? '1' : '0';
    }
    bits.resize(bits.size() - static_cast<std::size_t>(armored.fillBits));
    return bits;
}

}  // namespace

void compareAIS(Tables& tables) {
    for (const Row& row : tables["ais_bits"].rows()) {
        BitWriter bits;
        write(bits, row.text("writes"));
        const auto armored = bits.armored();
        row.expectText("bits", disarmored(armored));
        row.expectText("armored", armored.text);
        row.expectInteger("fillBits", armored.fillBits);
    }
    for (const Row& row : tables["ais_messages"].rows()) {
        const AISEncoder encoder{
            row.flag("corrupt"),
            platform::WallTime(std::chrono::seconds(row.integer("utcSecond")))};
        const auto target = aisTarget(row);
        const auto fragments =
            encoder.staticReport(target, static_cast<int>(row.integer("sequenceId")));
        row.expectText("positionReport", encoder.positionReport(target));
        row.expectText("staticFragment1", fragments[0]);
        row.expectText("staticFragment2", fragments[1]);
    }
}

}  // namespace tidewright::golden
