#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tidewright {

/// The fields of an AIS position report (message 1), as they are on the air.
struct PositionReport {
    std::int64_t type, repeat, mmsi, status, turn, speed, accuracy, longitude, latitude, course,
        heading, second, maneuver, spare, raim, radio;

    bool operator==(const PositionReport&) const = default;
};

/// The fields of an AIS static report (message 5), as they are on the air; texts with their "@".
struct StaticReport {
    std::int64_t type, repeat, mmsi, version, imo;
    std::string callsign, name;
    std::int64_t shipType, bow, stern, port, starboard, fixingDevice, month, day, hour, minute,
        draught;
    std::string destination;
    std::int64_t dte, spare;

    bool operator==(const StaticReport&) const = default;
};

/// Reads AIVDM sentences as a chart plotter does: written from the published description of the
/// protocol and sharing nothing with the encoder.
class AivdmDecoder {
public:
    /// The sentences of one message, in order. Throws std::invalid_argument on a wrong checksum.
    AivdmDecoder(std::initializer_list<std::string_view> sentences) {
        for (const std::string_view each : sentences) add(each);
    }

    std::size_t length() const { return bits_.size(); }

    PositionReport positionReport() {
        return {number(6),        number(2),  number(30), number(4),
                signedNumber(8),  number(10), number(1),  signedNumber(28),
                signedNumber(27), number(12), number(9),  number(6),
                number(2),        number(3),  number(1),  number(19)};
    }

    StaticReport staticReport() {
        return {number(6), number(2), number(30), number(2), number(30), text(7),   text(20),
                number(8), number(9), number(9),  number(6), number(6),  number(4), number(4),
                number(5), number(5), number(6),  number(8), text(20),   number(1), number(1)};
    }

    /// What stands between the commas, the start character and the checksum left out.
    static std::vector<std::string> fields(std::string_view sentence) {
        std::vector<std::string> fields(1);
        for (const char each : sentence.substr(1, sentence.find('*') - 1)) {
            if (each == ',')
                fields.emplace_back();
            else
                fields.back() += each;
        }
        return fields;
    }

    static bool isIntact(std::string_view sentence) {
        const std::size_t star = sentence.find('*');
        int sum = 0;
        for (const char each : sentence.substr(1, star - 1)) sum ^= each;
        return std::stoi(std::string(sentence.substr(star + 1, 2)), nullptr, 16) == sum;
    }

private:
    void add(std::string_view sentence) {
        if (!isIntact(sentence)) throw std::invalid_argument("wrong checksum");
        const auto parts = fields(sentence);
        for (const char each : parts.at(5)) {
            const int value = each - 48 > 40 ? each - 56 : each - 48;
            for (int bit = 5; bit >= 0; --bit) bits_.push_back((value >> bit & 1) != 0);
        }
        for (int fill = std::stoi(parts.at(6)); fill > 0; --fill) bits_.pop_back();
    }

    std::int64_t number(int bits) {
        std::int64_t value = 0;
        while (bits-- > 0) value = value * 2 + (bits_.at(next_++) ? 1 : 0);
        return value;
    }

    std::int64_t signedNumber(int bits) {
        const std::int64_t value = number(bits);
        return value < std::int64_t{1} << (bits - 1) ? value : value - (std::int64_t{1} << bits);
    }

    std::string text(int characters) {
        std::string text;
        while (characters-- > 0)
            text +=
                "@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_ !\"#$%&'()*+,-./"
                "0123456789:;<=>?"[number(6)];
        return text;
    }

    std::vector<bool> bits_;
    std::size_t next_ = 0;
};

}  // namespace tidewright
