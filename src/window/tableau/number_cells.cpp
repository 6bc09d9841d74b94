// SPDX-License-Identifier: MIT
// Drawing and wording of number cells.
#include "window/tableau/number_cells.h"

#include "chances/chancentabelle.h"
#include "look/text.h"
#include "stats/counters.h"
#include "stats/tableau.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStringList>

#include <array>
#include <cmath>

namespace window {

namespace {

/// Below this, large bold digits are hard to make out.
constexpr double Readable = 3.0;

double linear(double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

/// Red and black get a white edge, so that red never looks like black to eyes that confuse red
/// and green; the light colours get a black one.
QColor edgeFor(const QColor& fore) {
    const bool dark
        = fore == look::toColor(controls::Red) || fore == look::toColor(controls::Black);
    return dark ? QColor(255, 255, 255) : QColor(0, 0, 0);
}

int leftOf(const QRect& rect, Qt::Alignment alignment, int width) {
    if (alignment.testFlag(Qt::AlignLeft))
        return rect.left();
    const int room = rect.width() - width;
    return rect.left() + (alignment.testFlag(Qt::AlignRight) ? room : (room + 1) / 2);
}

int baselineOf(const QRect& rect, Qt::Alignment alignment, int height) {
    if (alignment.testFlag(Qt::AlignTop))
        return rect.top() + height;
    const int room = rect.height() - height;
    return rect.top() + height + (alignment.testFlag(Qt::AlignBottom) ? room : room / 2);
}

/// A chance code in words; a code of the table that isn't listed has none.
struct Word {
    std::string_view code;
    std::string_view word;
};
constexpr std::array Words{
    Word{"N", "Noir"},
    Word{"R", "Rouge"},
    Word{"P", "Pair"},
    Word{"I", "Impair"},
    Word{"Ps", "Passe"},
    Word{"M", "Manque"},
};

QString inWords(std::string_view code) {
    for (const Word& row : Words)
        if (row.code == code)
            return look::toText(row.word);
    return {};
}

QStringList chancesInWords(int number) {
    if (chances::classOf(number) == chances::NumberClass::Zero)
        return {QStringLiteral("Zero")};
    QStringList parts;
    for (const int column : {chances::NoirRouge, chances::PairImpair, chances::PasseManque})
        parts << inWords(chances::code(number, column));
    parts << look::toText(chances::code(number, chances::Kolonne)) + QStringLiteral(". Kolonne");
    parts << look::toText(chances::code(number, chances::Dutzend)) + QStringLiteral(". Dutzend");
    return parts;
}

} // namespace

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return a > b ? a / b : b / a;
}

Digits layOut(const look::Fit& fit) {
    const QFontMetrics metrics(fit.font);
    Digits digits{fit.font, QStaticText(fit.text), metrics.horizontalAdvance(fit.text),
        metrics.capHeight(), metrics.ascent()};
    digits.text.setTextFormat(Qt::PlainText);
    digits.text.prepare({}, fit.font);
    return digits;
}

void drawDigits(QPainter& painter, const QRect& rect, Qt::Alignment alignment, const Digits& digits,
    const QColor& fore, const QColor& back) {
    const QPoint corner(leftOf(rect, alignment, digits.width),
        baselineOf(rect, alignment, digits.height) - digits.ascent);
    painter.setFont(digits.font);
    if (contrast(fore, back) < Readable) {
        painter.setPen(edgeFor(fore));
        for (const QPoint offset : {QPoint(-1, -1), QPoint(0, -1), QPoint(1, -1), QPoint(-1, 0),
                 QPoint(1, 0), QPoint(-1, 1), QPoint(0, 1), QPoint(1, 1)})
            painter.drawStaticText(corner + offset, digits.text);
    }
    painter.setPen(fore);
    painter.drawStaticText(corner, digits.text);
}

QString describe(const forms::Program& program, int number) {
    QStringList parts = chancesInWords(number);
    parts << QString::number(M_Chancen::Anz_Plein(program, number))
            + QStringLiteral(" mal gefallen");
    if (M_Tableau::marked(program, number))
        parts << QStringLiteral("markiert");
    if (program.Frm_Main.Tableau.last == number)
        parts << QStringLiteral("letzte Zahl");
    return parts.join(QStringLiteral(", "));
}

} // namespace window
