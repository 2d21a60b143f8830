#include "ui/ActionsBridge.h"

#include "platform/Check.h"
#include "ui/Texts.h"

namespace tidewright::ui {

QString ActionsBridge::label(const QString& name) const {
    return toQt(action(name).label);
}

bool ActionsBridge::perform(const QString& name) const {
    return !action(name).perform().has_value();
}

const gateway::Action& ActionsBridge::action(const QString& name) const {
    const gateway::Action* found = actions_.find(name.toStdString());
    platform::check(found != nullptr, "there must be an action of that name");
    return *found;
}

}  // namespace tidewright::ui
