#include "simulation/DriftState.h"

#include <array>
#include <cmath>

namespace tidewright::simulation {

namespace {

struct Walk {
    double DriftState::*field;
    double reversion;  // per second
    double noise;      // in the field's unit, after one second
};

constexpr std::array<Walk, 9> walks{{
    {&DriftState::sog, 0.3, 0.4},
    {&DriftState::cog, 0.15, 6.0},
    {&DriftState::heading, 0.4, 3.0},
    {&DriftState::stw, 0.3, 0.3},
    {&DriftState::aws, 0.2, 2.5},
    {&DriftState::awa, 0.2, 8.0},
    {&DriftState::depth, 0.1, 4.0},
    {&DriftState::temp, 0.05, 0.4},
    {&DriftState::sats, 0.1, 1.2},
}};

}  // namespace

void DriftState::step(double dt, platform::RandomSource& random) {
    const double spread = std::sqrt(dt);
    for (const Walk& walk : walks) {
        double& x = this->*walk.field;
        const double u = random.closed(-1, 1);
        x = x - dt * (walk.reversion * x) + spread * u * walk.noise;
    }
}

}  // namespace tidewright::simulation
