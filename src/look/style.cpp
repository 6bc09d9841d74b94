// SPDX-License-Identifier: MIT
// The fixed look: one style, one light palette, one list of fonts, one language.
#include "look/style.h"

#include <QApplication>
#include <QFontMetrics>
#include <QLibraryInfo>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QStyleFactory>
#include <QToolTip>
#include <QTranslator>

#include <array>

namespace look {

namespace {

constexpr int narrowest = 80; // percent
constexpr int smallest = 8; // pixels
constexpr QChar ellipsis(0x2026);

/// What the system colours stand for, whatever the desktop looks like.
struct SystemColor {
    controls::Color value;
    controls::Color stands;
};
constexpr std::array systemColors{
    SystemColor{controls::ActiveTitle, controls::rgb(10, 36, 106)},
    SystemColor{controls::WindowBackground, controls::White},
    SystemColor{controls::WindowText, controls::Black},
    SystemColor{controls::HighlightText, controls::White},
    SystemColor{controls::ButtonFace, controls::rgb(240, 240, 240)},
    SystemColor{controls::GreyText, controls::rgb(128, 128, 128)},
};

constexpr controls::Color resolved(controls::Color color) {
    for (const SystemColor& row : systemColors)
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
    if (translator->load(
            QStringLiteral("qtbase_de"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

int widthOf(const QFont& font, const QString& text) {
    return QFontMetrics(font).horizontalAdvance(text);
}

/// Narrows `font` as far as it is allowed and needed; tells whether the text fits then.
bool narrow(QFont& font, const QString& text, int width) {
    const int whole = widthOf(font, text);
    if (whole <= width)
        return true;
    // Rounded glyph widths make the proportion a first guess only.
    for (int stretch = std::max(narrowest, 100 * width / whole); stretch >= narrowest; --stretch) {
        font.setStretch(stretch);
        if (widthOf(font, text) <= width)
            return true;
    }
    return false;
}

} // namespace

void applyStyle(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QPalette palette = lightPalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    const QFont font = toFont({});
    QApplication::setFont(font);
    QToolTip::setFont(font);
    speakGerman(application);
}

QColor toColor(controls::Color color) {
    const controls::Color value = resolved(color);
    return {static_cast<int>(value & 0xFFU), static_cast<int>(value >> 8U & 0xFFU),
        static_cast<int>(value >> 16U & 0xFFU)};
}

QFont toFont(const forms::plan::Font& font) {
    QFont result;
    result.setFamilies({QStringLiteral("MS Sans Serif"), QStringLiteral("Microsoft Sans Serif"),
        QStringLiteral("Liberation Sans"), QStringLiteral("Arial")});
    result.setStyleHint(QFont::SansSerif); // where none of them is installed
    // 72 points and 96 pixels to the inch.
    result.setPixelSize((font.size * 96 + 3600) / 7200);
    result.setBold(font.bold);
    result.setUnderline(font.underline);
    return result;
}

QRect toPixels(const controls::Rect& rect) {
    const QPoint topLeft(controls::toPixels(rect.left), controls::toPixels(rect.top));
    const QPoint bottomRight(controls::toPixels(rect.right()), controls::toPixels(rect.bottom()));
    return {topLeft, bottomRight - QPoint(1, 1)};
}

QString toText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

Fit fitted(const QFont& font, const QString& text, int width) {
    QFont attempt = font;
    if (narrow(attempt, text, width))
        return {attempt, text};
    for (int size = font.pixelSize() - 1; size >= smallest; --size) {
        attempt.setPixelSize(size);
        if (widthOf(attempt, text) <= width)
            return {attempt, text};
    }
    return {attempt, QFontMetrics(attempt).elidedText(text, Qt::ElideRight, width)};
}

Fit refitted(const Fit& last, const QFont& font, const QString& text, int width) {
    const bool alike = text.size() == last.text.size() && !last.text.endsWith(ellipsis);
    if (alike && widthOf(last.font, text) <= width)
        return {last.font, text};
    return fitted(font, text, width);
}

void drawFitted(
    QPainter& painter, const QRect& rect, int alignment, const QFont& font, const QString& text) {
    const Fit fit = fitted(font, text, rect.width());
    painter.setFont(fit.font);
    painter.drawText(rect, alignment | Qt::TextSingleLine, fit.text);
}

} // namespace look
