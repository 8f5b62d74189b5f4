#include "catalogue/windows/sckListFrm.h"
#include "catalogue/listStatements.h"
#include "widgets/layout.h"
#include <QGridLayout>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;
using widgets::Button;

namespace catalogue {

namespace {

// The position of each label: row and half of the window; long ones take a whole row.
struct Place {
    int row;
    int half;
    bool whole;
};
constexpr std::array<Place, detailLabels> places = {{{0, 0, false},
                                                     {0, 1, false},
                                                     {1, 0, true},
                                                     {2, 0, true},
                                                     {3, 0, false},
                                                     {3, 1, false},
                                                     {4, 0, false},
                                                     {4, 1, false},
                                                     {5, 0, false},
                                                     {5, 1, false},
                                                     {6, 0, false},
                                                     {6, 1, false},
                                                     {7, 0, false}}};

} // namespace

SCKListFrm::SCKListFrm(const database::SessionState &state, platform::Host &host, QWidget *parent)
    : ListWindow(u"SCKListFrm"_s, u"书目详细资料-书册信息"_s, u"条形码|卷 次|藏 地|价 格|状 态|可借否|应还日期"_s,
                 parent)
    , CmdExit(new Button(u"CmdExit"_s, u"&X 退 出"_s, this))
    , m_state(state)
    , m_host(host) {
    makeLabels();
    layOut();
    connect(CmdExit, &Button::clicked, this, &SCKListFrm::unload);
}

void SCKListFrm::makeLabels() {
    for (size_t index = 0; index < detailLabels; ++index) {
        const QString number = QString::number(index);
        const QString caption = detailCaptions[index].toString();
        Label1[index] = widgets::named(new QLabel(caption, this), u"Label1" + number);
        LabelZSK[index] = widgets::named(new QLabel(this), u"LabelZSK" + number, caption);
        LabelZSK[index]->setTextFormat(Qt::PlainText); // a title may look like markup
        LabelZSK[index]->setTextInteractionFlags(Qt::TextSelectableByMouse);
        LabelZSK[index]->setWordWrap(true);
        // Every label keeps the height of one line, even in a small window.
        for (QLabel *label : {Label1[index], LabelZSK[index]})
            label->setMinimumHeight(label->fontMetrics().size(Qt::TextSingleLine, u"书Ag"_s).height());
    }
}

void SCKListFrm::layOut() {
    auto *labels = new QGridLayout;
    for (size_t index = 0; index < detailLabels; ++index) {
        const Place &place = places[index];
        labels->addWidget(Label1[index], place.row, place.half * 2, Qt::AlignTop);
        labels->addWidget(LabelZSK[index], place.row, place.half * 2 + 1, 1, place.whole ? 3 : 1);
    }
    labels->setColumnStretch(1, 1);
    labels->setColumnStretch(3, 1);
    setLayout(widgets::column({labels, {Grid1, 1}, widgets::row({widgets::stretch(), CmdExit})}));
}

void SCKListFrm::InfoLoad(qint32 zskid) {
    if (zskid <= 0)
        return;
    database::DbSession session;
    if (!database::openConnection(session, m_state, m_host))
        return;
    const auto book = session->query(detailStatement(zskid));
    if (book && book.value()->rowCount() == 0) {
        showNothing();
    } else if (book) {
        const auto values = detailValues(*book.value());
        setWindowTitle(u"书目详细资料-书册信息-->" + values[titleLabel]);
        for (size_t index = 0; index < detailLabels; ++index)
            LabelZSK[index]->setText(values[index]);
        loadCopies(*session, zskid);
    }
    database::closeConnection(session);
}

void SCKListFrm::showNothing() {
    setWindowTitle(u"书目详细资料-书册信息-->(空)"_s);
    for (QLabel *label : LabelZSK)
        label->clear();
    gridInit();
}

void SCKListFrm::loadCopies(database::Connection &connection, qint32 zskid) {
    const auto copies = connection.query(copiesStatement(zskid));
    if (!copies) {
        gridInit(); // so that the copies of another title are not shown
        return;
    }
    showRows(std::make_shared<CopiesTable>(copies.value()));
    LabelZSK[copyCountLabel]->setText(QString::number(copies.value()->rowCount()));
}

void SCKListFrm::gridFix() {
    setWidths(copiesWidths(gridRoom()));
}

} // namespace catalogue
