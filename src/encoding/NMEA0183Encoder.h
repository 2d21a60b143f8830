#pragma once

#include <string>

#include "simulation/BoatState.h"

namespace tidewright::encoding {

/// Builds NMEA 0183 sentences, whole with frame and CR LF, from what the instruments show.
///
/// Numbers carry one decimal and are rounded as printf rounds, whatever the locale. Courses,
/// headings and wind angles are first brought into [0, 360); 359.96 is therefore sent as 360.0.
/// A position must be finite: anything else stops the program. Times begin on 1677-09-22, the first
/// whole day that they can count.
struct NMEA0183Encoder {
    std::string talker;    ///< two letters before the sentence's name, as in "GP"; not checked
    bool corrupt = false;  ///< sends a wrong checksum on purpose

    /// Recommended minimum data.
    ///
    ///     $GPRMC,123519.00,A,4807.0380,N,01131.0020,W,5.2,84.4,230394,,,A*71
    ///            |         | |           |            |   |    |      || +- mode, always A
    ///            |         | |           |            |   |    |      ++--- variation, empty
    ///            |         | |           |            |   |    +----------- date, ddmmyy
    ///            |         | |           |            |   +---------------- COG, degrees true
    ///            |         | |           |            +-------------------- SOG, knots
    ///            |         | +-----------+--------------------------------- latitude, longitude
    ///            |         +----------------------------------------------- A with a fix, else V
    ///            +--------------------------------------------------------- UTC
    std::string rmc(const simulation::BoatState& state) const;

    /// Fix data.
    ///
    ///     $GPGGA,123519.00,4807.0380,N,01131.0020,W,1,08,0.8,0.0,M,48.0,M,,*..
    ///            |         |           |            | |  |   |     +- geoidal separation, metres
    ///            |         |           |            | |  |   +------- altitude, metres
    ///            |         |           |            | |  +----------- HDOP
    ///            |         |           |            | +-------------- satellites in use
    ///            |         |           |            +---------------- 1 with a fix, else 0
    ///            |         +-----------+----------------------------- latitude, longitude
    ///            +--------------------------------------------------- UTC
    std::string gga(const simulation::BoatState& state) const;

    /// Course and speed over ground: "VTG,84.4,T,,M,5.2,N,9.6,K,A": degrees true, no magnetic
    /// course, knots, km/h.
    std::string vtg(const simulation::BoatState& state) const;

    /// True heading: "HDT,84.4,T".
    std::string hdt(const simulation::BoatState& state) const;

    /// Heading with deviation and variation, both left empty: "HDG,84.4,,,,". The true heading
    /// stands for the sensor's.
    std::string hdg(const simulation::BoatState& state) const;

    /// Water speed and heading: "VHW,84.4,T,,M,5.0,N,9.3,K": degrees true, no magnetic heading,
    /// knots, km/h.
    std::string vhw(const simulation::BoatState& state) const;

    /// Apparent wind: "MWV,40.0,R,15.0,N,A": degrees clockwise from the bow, relative, knots.
    std::string mwvApparent(const simulation::BoatState& state) const;

    /// True wind: "MWV,55.0,T,12.0,N,A": degrees clockwise from the bow, theoretical, knots.
    std::string mwvTrue(const simulation::BoatState& state) const;

    /// Depth below the transducer: "DBT,39.4,f,12.0,M,6.6,F": feet, metres, fathoms.
    std::string dbt(const simulation::BoatState& state) const;

    /// Depth: "DPT,12.0,0.0,": metres, transducer offset 0.0, no maximum range.
    std::string dpt(const simulation::BoatState& state) const;

    /// Water temperature: "MTW,16.5,C".
    std::string mtw(const simulation::BoatState& state) const;

    /// "hhmmss.hh", UTC. Hundredths are rounded, an exact half up, and never carry: 12:00:00.996 is
    /// "120000.00".
    static std::string utcTime(platform::WallTime time);

    /// "ddmmyy", UTC.
    static std::string utcDate(platform::WallTime time);

    /// Degrees, minutes with four decimals, hemisphere: 48.1173 is "4807.0380,N". Minutes never
    /// carry: 10.9999999 is "1060.0000,N".
    static std::string lat(double degrees);

    /// The same with three digits of degrees: -11.5167 is "01131.0020,W".
    static std::string lon(double degrees);

    /// `value` with `decimals` (>= 0) digits after the point, as printf("%.*f") writes it in the C
    /// locale.
    static std::string f(double value, int decimals);
};

}  // namespace tidewright::encoding
