#include "gateway/Actions.h"

#include <algorithm>
#include <utility>

namespace tidewright::gateway {

namespace {

using simulation::BoatSimulationEngine;
using simulation::ControlMode;
using simulation::Maneuver;

using Reason = std::optional<std::string>;

Reason never() {
    return std::nullopt;
}

Action action(std::string name, std::string label, const std::function<Reason()>& obstacle,
              std::function<void()> work) {
    return {.name = std::move(name),
            .label = std::move(label),
            .obstacle = obstacle,
            .perform = [obstacle, work = std::move(work)] {
                Reason reason = obstacle();
                if (!reason) work();
                return reason;
            }};
}

/// An action that ends in a start, which can fail.
Action starting(std::string name, std::string label, GatewaySimulator& gateway,
                std::function<void()> work) {
    return {.name = std::move(name),
            .label = std::move(label),
            .obstacle = never,
            .perform = [&gateway, work = std::move(work)]() -> Reason {
                work();
                return gateway.isRunning ? std::nullopt : gateway.lastError.get();
            }};
}

Action maneuver(std::string name, std::string label, Maneuver which, BoatSimulationEngine& engine,
                const std::function<Reason()>& whileStopped) {
    const auto obstacle = [&engine, whileStopped]() -> Reason {
        if (Reason stopped = whileStopped()) return stopped;
        if (engine.mode != ControlMode::auto_)
            return "Le bateau ne manœuvre de lui-même qu'en mode Auto.";
        if (engine.sailing().maneuvering) return "Une manœuvre est déjà en cours.";
        return std::nullopt;
    };
    return action(std::move(name), std::move(label), obstacle,
                  [&engine, which] { engine.triggerManeuver(which); });
}

}  // namespace

Actions::Actions(Settings& settings, BoatSimulationEngine& engine, GatewaySimulator& gateway) {
    const auto whileStopped = [&gateway]() -> Reason {
        if (gateway.isRunning) return std::nullopt;
        return "L'émission est arrêtée.";
    };
    const auto withoutAnchor = [&engine, whileStopped]() -> Reason {
        if (Reason stopped = whileStopped()) return stopped;
        if (engine.mode == ControlMode::anchor) return std::nullopt;
        return "L'ancre ne se mouille qu'en mode Mouillage.";
    };
    all_ = {
        starting("start", "Démarrer l'émission", gateway, [&gateway] { gateway.start(); }),
        action("stop", "Arrêter l'émission", never, [&gateway] { gateway.stop(); }),
        starting("restart", "Redémarrer l'émission", gateway,
                 [&gateway] {
                     gateway.stop();
                     gateway.start();
                 }),
        action("drop-clients", "Lâcher les clients TCP", whileStopped,
               [&gateway] { gateway.dropClients(); }),
        maneuver("tack", "Virer de bord", Maneuver::tack, engine, whileStopped),
        maneuver("gybe", "Empanner", Maneuver::gybe, engine, whileStopped),
        action("drop-anchor", "Mouiller ici", withoutAnchor, [&engine] { engine.dropAnchor(); }),
        action("regenerate-ais", "Renouveler les navires AIS", never,
               [&gateway] { gateway.regenerateAIS(); }),
        action("clear-console", "Vider la console", never, [&gateway] { gateway.clearConsole(); }),
        action("clear-faults", "Couper toutes les pannes", never,
               [&settings] { settings.clearFaults(); }),
        action("reset", "Rétablir tous les réglages", never, [&settings] { settings.reset(); }),
    };
}

const Action* Actions::find(std::string_view name) const {
    const auto found = std::ranges::find(all_, name, &Action::name);
    return found == all_.end() ? nullptr : &*found;
}

}  // namespace tidewright::gateway
