#include "app/windows/targetWindows.h"
#include "batch/duplicates.h"
#include "card/showKapian.h"
#include "platform/paths.h"
#include "schema/schemaChoice.h"
#include "schema/validator.h"
#include "targets/fieldComparison.h"
#include "targets/recordViews.h"
#include <utility>

using namespace Qt::StringLiterals;

namespace app {

namespace {

QString cardOf(const marc::FieldedRecord &record) {
    const auto raw = targets::asRawRecord(record);
    if (!raw)
        return raw.failure().description;
    const card::Card card = card::showKapian(raw.value());
    return card.text && !card.text->isEmpty() ? *card.text : card.fault.isEmpty() ? u"没有卡片"_s : card.fault;
}

// The schema is read at the first record.
struct SchemaProof {
    schema::SchemaInForce source;
    std::shared_ptr<const schema::Schema> schema;
    std::optional<schema::Validator> validator;
    schema::RecordView view;

    std::optional<targets::FoundRecords::Faults> faultsOf(const marc::FieldedRecord &record, const QDate &today) {
        if (!validator) {
            schema = source.schema();
            if (!schema)
                return std::nullopt;
            validator.emplace(schema, today);
            validator->setChecks(source.checks());
        }
        view.read(record);
        targets::FoundRecords::Faults faults;
        for (const schema::Finding &finding : validator->validate(view))
            ++(finding.level == schema::Level::Error ? faults.errors : faults.warnings);
        return faults;
    }
};

} // namespace

TargetWindows::TargetWindows(platform::Host &host, const database::SessionState &state,
                             std::function<void(const QString &file, QWidget *owner)> open)
    : m_host(host)
    , m_state(state)
    , m_open(std::move(open)) {}

void TargetWindows::search(QWidget *owner, const targets::Query &query, const targets::CurrentRecord &current) {
    targets::frmSearch window(m_host, surroundings(), current, owner);
    window.ask(query);
    window.exec();
}

targets::Surroundings TargetWindows::surroundings() const {
    return {
        .proof = proof(),
        .card = cardOf,
        .searchHoldings = [this](const std::vector<marc::FieldedRecord> &records) { return searchHoldings(records); },
        .open = m_open};
}

targets::FoundRecords::Proof TargetWindows::proof() const {
    const auto proof = std::make_shared<SchemaProof>(SchemaProof{
        .source = schema::SchemaInForce(m_host.settings(), platform::pathWithSlash(m_host.programFolder()))});
    proof->source.setChecks(schema::chosenChecks(m_host.remembered()));
    return [proof, today = m_host.now().date()](
               const marc::FieldedRecord &record) -> std::optional<targets::FoundRecords::Faults> {
        if (targets::familyOf(record) == targets::Family::Marc21) // the schema is that of CNMARC
            return std::nullopt;
        return proof->faultsOf(record, today);
    };
}

targets::HoldingSearch TargetWindows::searchHoldings(const std::vector<marc::FieldedRecord> &records) const {
    batch::SoughtBooks sought;
    for (size_t i = 0; i < records.size(); ++i) {
        const auto rows = targets::rowsOf(records[i]);
        if (!rows)
            continue;
        const batch::BookIdentity identity = batch::identityOf(*rows);
        if (!identity.isEmpty())
            sought.add(int(i), identity);
    }
    const auto search = std::make_shared<batch::DuplicateSearch>(m_state, std::move(sought));
    return [search]() -> std::optional<std::vector<targets::Holding>> {
        if (!search->hasNext())
            return std::nullopt;
        std::vector<targets::Holding> found;
        for (const batch::Remark &remark : search->step())
            found.push_back({remark.record, remark.text});
        return found;
    };
}

} // namespace app
