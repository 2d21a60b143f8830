#pragma once

#include <QColor>
#include <QGuiApplication>
#include <QImage>
#include <QRect>
#include <array>
#include <cstdlib>

namespace tidewright::ui {

/// A black picture to paint on without a display, and to look for colours in.
struct Painting {
    std::array<char, 5> name{"test"};
    std::array<char, 10> option{"-platform"};
    std::array<char, 10> platform{"offscreen"};
    std::array<char*, 4> arguments{name.data(), option.data(), platform.data(), nullptr};
    int argumentCount = 3;
    QGuiApplication application{argumentCount, arguments.data()};
    QImage image;

    explicit Painting(QSize size) : image(black(size)) {}

    static QImage black(QSize size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::black);
        return image;
    }

    /// `colour` as it looks over black with `share` of opacity.
    static QColor shade(const QColor& colour, double share) {
        return QColor::fromRgbF(static_cast<float>(colour.redF() * share),
                                static_cast<float>(colour.greenF() * share),
                                static_cast<float>(colour.blueF() * share));
    }

    /// The rectangle around every pixel of `colour`, or nearly; null where there is none.
    QRect extentOf(const QColor& colour) const {
        QRect found;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (isNear(image.pixelColor(x, y), colour)) found |= QRect(x, y, 1, 1);
        return found;
    }

private:
    static bool isNear(const QColor& a, const QColor& b) {
        return std::abs(a.red() - b.red()) < 24 && std::abs(a.green() - b.green()) < 24 &&
               std::abs(a.blue() - b.blue()) < 24;
    }
};

}  // namespace tidewright::ui
