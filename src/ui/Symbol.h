#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>
#include <QString>

namespace tidewright::ui {

/// A small drawing in lines of one colour, as large as the item. An image rather than a shape: the
/// software renderer paints bare shapes outside what should clip them.
class Symbol : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name MEMBER name_ NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed REQUIRED)
    Q_PROPERTY(bool filled MEMBER filled_ NOTIFY changed)

public:
    static constexpr int usualSize = 20;

    explicit Symbol(QQuickItem* parent = nullptr);

    /// Draws nothing for a name that no drawing has.
    void paint(QPainter* painter) override;

Q_SIGNALS:
    void changed();

private:
    QString name_;
    QColor color_;
    bool filled_ = false;
};

}  // namespace tidewright::ui
