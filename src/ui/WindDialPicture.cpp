#include "ui/WindDialPicture.h"

#include "ui/Texts.h"

namespace tidewright::ui {

WindDialPicture::WindDialPicture(QQuickItem* parent)
    : LivePicture(std::chrono::milliseconds(500), parent) {}

QString WindDialPicture::apparentText() const {
    return toQt(windText(reading_.apparent));
}

QString WindDialPicture::trueText() const {
    return toQt(windText(reading_.real));
}

void WindDialPicture::paint(QPainter* painter) {
    paintDial(*painter, reading_, QRectF({0, 0}, size()),
              {.water = water_,
               .line = line_,
               .ink = ink_,
               .muted = muted_,
               .apparent = apparent_,
               .real = real_,
               .starboard = starboard_,
               .port = port_,
               .digits = digits_,
               .textSize = textSize_});
}

QString WindDialPicture::look() {
    reading_ = DialReading(engine()->boat().state);
    return QStringLiteral("Vent apparent %1 ; vent réel %2").arg(apparentText(), trueText());
}

}  // namespace tidewright::ui
