#include "ui/Symbol.h"

#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <array>
#include <string_view>

#include "ui/Texts.h"

namespace tidewright::ui {

namespace {

struct Drawing {
    std::string_view name;
    std::string_view path;  // in SVG's words, on a field of 24 by 24
};

constexpr std::array drawings{
    Drawing{"iphone.gen3.radiowaves.left.and.right",
            "M9.5 3h5a1.5 1.5 0 0 1 1.5 1.5v15a1.5 1.5 0 0 1 -1.5 1.5h-5a1.5 1.5 0 0 1 "
            "-1.5 -1.5v-15a1.5 1.5 0 0 1 1.5 -1.5z M11 18h2 M5 9a5 5 0 0 0 0 6 M2 7a9 9 0 "
            "0 0 0 10 M19 9a5 5 0 0 1 0 6 M22 7a9 9 0 0 1 0 10"},
    Drawing{"gauge.with.dots.needle.bottom.50percent",
            "M5.6 18.4a9 9 0 1 1 12.8 0 M12 14l0 -6 M10.5 14a1.5 1.5 0 1 0 3 0a1.5 1.5 0 1 "
            "0 -3 0 M6.5 12h0.01 M17.5 12h0.01 M8 8h0.01 M16 8h0.01"},
    Drawing{"slider.horizontal.3",
            "M3 6h8 M15 6h6 M3 12h3 M10 12h11 M3 18h11 M18 18h3 M11 6a2 2 0 1 0 4 0a2 2 0 "
            "1 0 -4 0 M6 12a2 2 0 1 0 4 0a2 2 0 1 0 -4 0 M14 18a2 2 0 1 0 4 0a2 2 0 1 0 -4 "
            "0"},
    Drawing{"gearshape",
            "M9 12a3 3 0 1 0 6 0a3 3 0 1 0 -6 0 M12 3v3 M12 18v3 M3 12h3 M18 12h3 M5.6 "
            "5.6l2.2 2.2 M16.2 16.2l2.2 2.2 M5.6 18.4l2.2 -2.2 M16.2 7.8l2.2 -2.2"},
    Drawing{"terminal",
            "M4.5 4h15a1.5 1.5 0 0 1 1.5 1.5v13a1.5 1.5 0 0 1 -1.5 1.5h-15a1.5 1.5 0 0 1 "
            "-1.5 -1.5v-13a1.5 1.5 0 0 1 1.5 -1.5z M7 9l3 3l-3 3 M12.5 15h4.5"},
    Drawing{"play", "M8 5v14l11 -7z"},
    Drawing{"stop", "M6 6h12v12h-12z"},
    Drawing{"doc.on.doc",
            "M9 8h9.5a1.5 1.5 0 0 1 1.5 1.5v9.5a1.5 1.5 0 0 1 -1.5 1.5h-9.5a1.5 1.5 0 0 1 "
            "-1.5 -1.5v-9.5a1.5 1.5 0 0 1 1.5 -1.5z M16 8v-3a1.5 1.5 0 0 0 -1.5 "
            "-1.5h-9.5a1.5 1.5 0 0 0 -1.5 1.5v9.5a1.5 1.5 0 0 0 1.5 1.5h2.5"},
    Drawing{"checkmark", "M5 13l4.5 4.5l10 -11"},
    Drawing{"chevron.down", "M6 9l6 6l6 -6"},
    Drawing{"plus", "M12 6v12 M6 12h12"},
    Drawing{"minus", "M6 12h12"},
    Drawing{"viewfinder",
            "M4 9v-3.5a1.5 1.5 0 0 1 1.5 -1.5h3.5 M15 4h3.5a1.5 1.5 0 0 1 1.5 1.5v3.5 M20 "
            "15v3.5a1.5 1.5 0 0 1 -1.5 1.5h-3.5 M9 20h-3.5a1.5 1.5 0 0 1 -1.5 -1.5v-3.5 M12 "
            "11.8v0.4 M11.8 12h0.4"},
    Drawing{"sailboat",
            "M12 3v13 M12 4c4 3 6 7 6.5 12h-6.5 M9 8c-2 2 -3.2 5 -3.5 8h3.5z M3 19h18c-0.8 "
            "1.6 -2 2.5 -4 2.5h-10c-2 0 -3.2 -0.9 -4 -2.5z"},
    Drawing{"exclamationmark.triangle", "M12 4l9 16h-18z M12 10v5 M12 17.5v0.01"},
};

std::string_view pathOf(const QString& name) {
    const auto found = std::ranges::find(drawings, name.toStdString(), &Drawing::name);
    return found == drawings.end() ? std::string_view() : found->path;
}

}  // namespace

Symbol::Symbol(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setImplicitSize(usualSize, usualSize);
    connect(this, &Symbol::changed, this, [this] { update(); });
}

void Symbol::paint(QPainter* painter) {
    const QString picture =
        QStringLiteral(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24">)"
                       R"(<path d="%1" stroke="%2" fill="%3" stroke-width="1.75" )"
                       R"(stroke-linecap="round" stroke-linejoin="round"/></svg>)")
            .arg(toQt(pathOf(name_)), color_.name(),
                 filled_ ? color_.name() : QStringLiteral("none"));
    QSvgRenderer(picture.toUtf8()).render(painter, boundingRect());
}

}  // namespace tidewright::ui
