#pragma once

#include <QMetaObject>
#include <QQuickPaintedItem>
#include <QTimer>

#include "platform/Subscription.h"
#include "ui/EngineBridge.h"

namespace tidewright::ui {

/// A picture of the boat that follows her at a pace of its own, so that it costs little: painted
/// once in a while at most, and not at all while nobody can see it. It is up to date again as soon
/// as it is back in sight.
class LivePicture : public QQuickPaintedItem {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(tidewright::ui::EngineBridge* engine READ engine WRITE setEngine NOTIFY engineChanged
                   REQUIRED)
    Q_PROPERTY(QString description READ description NOTIFY described)

public:
    /// Painted `pace` apart, or more.
    LivePicture(std::chrono::milliseconds pace, QQuickItem* parent);

    EngineBridge* engine() const { return engine_; }
    void setEngine(EngineBridge* engine);

    /// What is shown, in words.
    const QString& description() const { return description_; }

Q_SIGNALS:
    void engineChanged();
    void described();  ///< with every painting

protected:
    /// Looks at the boat; called before painting. Answers the description.
    virtual QString look() = 0;

    /// What is shown is no longer so.
    void refresh();

    /// The same, at once: the user is waiting for it.
    void refreshNow();

    void updatePolish() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;

private:
    bool isInSight() const;
    void paintIfSeen();

    EngineBridge* engine_ = nullptr;
    QString description_;
    bool stale_ = false;
    QTimer rest_;
    QMetaObject::Connection frames_;
    platform::Subscription changes_;
};

}  // namespace tidewright::ui
