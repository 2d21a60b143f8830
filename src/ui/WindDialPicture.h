#pragma once

#include <QColor>
#include <QString>

#include "ui/LivePicture.h"
#include "ui/WindDial.h"

namespace tidewright::ui {

/// The wind dial as an item, repainted twice a second at most.
class WindDialPicture : public tidewright::ui::LivePicture {  // in full, for the linter
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString apparentText READ apparentText NOTIFY described)
    Q_PROPERTY(QString trueText READ trueText NOTIFY described)
    Q_PROPERTY(QColor water MEMBER water_)
    Q_PROPERTY(QColor line MEMBER line_)
    Q_PROPERTY(QColor ink MEMBER ink_)
    Q_PROPERTY(QColor muted MEMBER muted_)
    Q_PROPERTY(QColor apparent MEMBER apparent_)
    Q_PROPERTY(QColor real MEMBER real_)
    Q_PROPERTY(QColor starboard MEMBER starboard_)
    Q_PROPERTY(QColor port MEMBER port_)
    Q_PROPERTY(QString digits MEMBER digits_)
    Q_PROPERTY(int textSize MEMBER textSize_)

public:
    explicit WindDialPicture(QQuickItem* parent = nullptr);

    QString apparentText() const;
    QString trueText() const;

    void paint(QPainter* painter) override;

protected:
    QString look() override;

private:
    QColor water_;
    QColor line_;
    QColor ink_;
    QColor muted_;
    QColor apparent_;
    QColor real_;
    QColor starboard_;
    QColor port_;
    QString digits_;
    int textSize_ = 0;
    DialReading reading_;
};

}  // namespace tidewright::ui
