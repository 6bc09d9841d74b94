// SPDX-License-Identifier: MIT
// The fixed look: one style, one light palette, one list of fonts, one language.
#include "look/style.h"

#include "look/text.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QProxyStyle>
#include <QToolTip>
#include <QTranslator>

#include <array>

namespace look {

namespace {

/// What the system colours stand for, whatever the desktop looks like.
struct SystemColor {
    controls::Color value;
    controls::Color stands;
};
constexpr std::array SystemColors{
    SystemColor{controls::ActiveTitle, controls::rgb(10, 36, 106)},
    SystemColor{controls::WindowBackground, controls::White},
    SystemColor{controls::WindowText, controls::Black},
    SystemColor{controls::HighlightText, controls::White},
    SystemColor{controls::ButtonFace, controls::rgb(240, 240, 240)},
    SystemColor{controls::GreyText, controls::rgb(128, 128, 128)},
};

constexpr controls::Color resolved(controls::Color color) {
    for (const SystemColor& row : SystemColors)
        if (row.value == color)
            return row.stands;
    return color;
}

QPalette lightPalette() {
    const QColor face = toColor(controls::ButtonFace);
    const QColor text = toColor(controls::WindowText);
    const QColor grey = toColor(controls::GreyText);
    const QColor selection(0, 84, 166);
    QPalette palette(text, face, QColor(255, 255, 255), QColor(160, 160, 160),
        QColor(200, 200, 200), text, QColor(255, 255, 255), toColor(controls::WindowBackground),
        face);
    palette.setColor(QPalette::Midlight, QColor(248, 248, 248));
    palette.setColor(QPalette::Shadow, QColor(105, 105, 105));
    palette.setColor(QPalette::AlternateBase, QColor(247, 247, 247));
    palette.setColor(QPalette::Highlight, selection);
    palette.setColor(QPalette::HighlightedText, toColor(controls::HighlightText));
    palette.setColor(QPalette::Link, selection);
    palette.setColor(QPalette::LinkVisited, QColor(102, 51, 153));
    palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 225));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, grey);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, grey);
    palette.setColor(QPalette::Disabled, QPalette::Base, face);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(200, 200, 200));
    return palette;
}

/// The toolkit's own words ("Abbrechen") in German, also where the desktop speaks another language.
void speakGerman(QApplication& application) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    auto* translator = new QTranslator(&application);
    // Within the program where it was linked whole, else where the toolkit has its own.
    for (const QString& folder :
        {QStringLiteral(":/translations"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)})
        if (translator->load(QStringLiteral("qtbase_de"), folder)) {
            QCoreApplication::installTranslator(translator);
            return;
        }
}

/// Buttons of the toolkit's dialogs bear text only, like all others.
class PlainStyle final : public QProxyStyle {
public:
    PlainStyle() : QProxyStyle(QStringLiteral("Fusion")) { }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
        QStyleHintReturn* more) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
            ? 0
            : QProxyStyle::styleHint(hint, option, widget, more);
    }
};

} // namespace

void applyStyle(QApplication& application) {
    QApplication::setStyle(new PlainStyle);
    // A theme that there isn't: the toolkit then draws its own icons, which suit the light palette.
    for (const auto set : {QIcon::setThemeName, QIcon::setFallbackThemeName})
        set(QStringLiteral("none"));
    holdStyle();
    speakGerman(application);
}

void holdStyle() {
    const QPalette palette = lightPalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    QApplication::setFont(toFont({})); // for every class of control that had one of its own, too
}

QColor toColor(controls::Color color) {
    const controls::Color value = resolved(color);
    return {static_cast<int>(value & 0xFFU), static_cast<int>(value >> 8U & 0xFFU),
        static_cast<int>(value >> 16U & 0xFFU)};
}

QFont toFont(const forms::plan::Font& font) {
    QFont result;
    result.setFamilies({QStringLiteral("Microsoft Sans Serif"), QStringLiteral("MS Sans Serif"),
        QStringLiteral("Liberation Sans"), QStringLiteral("Arial")});
    result.setStyleHint(QFont::SansSerif); // where none of them is installed
    // 72 points and 96 pixels to the inch.
    result.setPixelSize((font.size * 96 + 3600) / 7200);
    result.setBold(font.bold);
    result.setUnderline(font.underline);
    return result;
}

void applyRow(const forms::plan::Control& row, QWidget& widget) {
    widget.setObjectName(controlName(row.name, row.index));
    widget.setGeometry(toPixels(row.place));
    widget.setToolTip(toText(row.toolTip));
    if (!row.spoken.empty())
        widget.setAccessibleName(toText(row.spoken));
}

QRect toPixels(const controls::Rect& rect) {
    const QPoint topLeft(controls::toPixels(rect.left), controls::toPixels(rect.top));
    const QPoint bottomRight(controls::toPixels(rect.right()), controls::toPixels(rect.bottom()));
    return {topLeft, bottomRight - QPoint(1, 1)};
}

QImage loadPicture(Picture picture, qreal factor) {
    const QString name
        = picture == Picture::Icon ? QStringLiteral("icon") : QStringLiteral("banner");
    const QString fine = factor > 1 ? QStringLiteral("@2x") : QString();
    QImage image(QStringLiteral(":/pictures/%1%2.png").arg(name, fine));
    // The toolkit reads a factor from the file's name; but who stretches counts the picture's
    // pixels.
    image.setDevicePixelRatio(1);
    return image;
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
        icon.addFile(
            QStringLiteral(":/icons/hicolor/%1x%1/apps/de.kestrelwood.kestrelwood.png").arg(size));
    return icon;
}

} // namespace look
