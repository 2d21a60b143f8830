#include "simulation/ManualTargets.h"

#include "simulation/Angles.h"
#include "simulation/TrueWind.h"

namespace tidewright::simulation {

void applyManual(const ManualTargets& targets, double dt, BoatState& state,
                 platform::WallTime now) {
    state.sog = state.stw = targets.sog;
    state.cog = state.heading = wrap360(targets.heading);
    state.apparentWindSpeed = targets.windSpeed;
    state.apparentWindAngle = wrap180(targets.windAngle);
    const RelativeWind wind = trueWind(state.apparentWindAngle, targets.windSpeed, targets.sog);
    state.trueWindAngle = wind.angle;
    state.trueWindSpeed = wind.speed;
    state.depth = targets.depth;
    state.waterTemperature = targets.waterTemp;
    state.gpsFix = true;
    state.integratePosition(dt);
    state.timestamp = now;
}

}  // namespace tidewright::simulation
