#include "card/windows/cardFace.h"
#include "widgets/stylePaint.h"

using widgets::Colour;
using widgets::colour;

namespace card {

namespace {
constexpr double cardWidth = 12.5, cardHeight = 7.5; // centimetres
constexpr double side = 0.7, top = 0.5, bottom = 1.3, hole = 0.8, holeAbove = 0.35;
} // namespace

CardFace::CardFace(widgets::TextBox *text, QWidget *parent)
    : QWidget(parent)
    , m_text(text) {
    text->setParent(this);
}

void CardFace::showAsCard(bool card) {
    m_isCard = card;
    m_text->setFrameShape(card ? QFrame::NoFrame : QFrame::StyledPanel);
    place();
    update();
}

QRect CardFace::card() const {
    const QSize size = QSizeF(cardWidth, cardHeight).scaled(this->size(), Qt::KeepAspectRatio).toSize();
    return {QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

void CardFace::place() {
    if (!m_isCard)
        return m_text->setGeometry(rect());
    const QRect face = card();
    const double unit = face.width() / cardWidth;
    m_text->setGeometry(face.adjusted(int(side * unit), int(top * unit), -int(side * unit), -int(bottom * unit)));
}

void CardFace::resizeEvent(QResizeEvent *) {
    place();
}

void CardFace::paintEvent(QPaintEvent *) {
    if (!m_isCard)
        return;
    QPainter painter(this);
    const QRect face = card();
    const double unit = face.width() / cardWidth;
    const QColor line = colour(Colour::Edge, palette());
    widgets::paintPanel(&painter, face, colour(Colour::Base, palette()), line);
    const int wide = int(hole * unit);
    const QRect round(face.center().x() - wide / 2, face.bottom() - int(holeAbove * unit) - wide, wide, wide);
    widgets::paintPanel(&painter, round, colour(Colour::Window, palette()), line, wide / 2.0);
}

} // namespace card
