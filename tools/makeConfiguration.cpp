// Builds the configuration files of the program's folder and the schema from the format text, the office's template,
// the coded positions and the rules. Writes nothing if a line of one of them is malformed.
#include "marc/configurationFiles.h"
#include "platform/byteFile.h"
#include "platform/textFile.h"
#include "tools/avramText.h"
#include "tools/sourceText.h"
#include <QFile>
#include <QJsonDocument>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

platform::Result<QJsonArray> readRules(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return platform::Failure{file.errorString()};
    QJsonParseError error;
    const QJsonDocument rules = QJsonDocument::fromJson(file.readAll(), &error);
    if (!rules.isArray())
        return platform::Failure{u"no array of rules: "_s + error.errorString()};
    return rules.array();
}

platform::Failure at(const QString &path, const platform::Failure &failure) {
    return {path + u": "_s + failure.description};
}

// Returns the schema as JSON. A failure names the text.
platform::Result<QByteArray> makeSchema(const tools::Format &format, const QString &codesPath,
                                        const QString &rulesPath) {
    const auto lines = tools::readSource(codesPath);
    const auto values = lines ? tools::parseCodedValues(lines.value()) : lines.failure();
    if (!values)
        return at(codesPath, values.failure());
    const auto rules = readRules(rulesPath);
    if (!rules)
        return at(rulesPath, rules.failure());
    auto schema = tools::avramSchema(format, values.value(), rules.value());
    if (!schema)
        return at(codesPath, schema.failure());
    return schema;
}

platform::Status writeBytes(const QString &path, const QByteArray &bytes) {
    auto file = platform::SavedFile::create(path);
    if (!file)
        return file.failure();
    if (const auto written = file.value().write(bytes); !written)
        return written;
    return file.value().commit();
}

} // namespace

int main(int count, char **arguments) {
    if (count != 6)
        return tools::complain(u"makeConfiguration"_s,
                               u"usage: makeConfiguration FOLDER FORMATTEXT TEMPLATETEXT CODESTEXT RULES"_s);
    const QString folder = QString::fromLocal8Bit(arguments[1]) + u'/';
    const QString formatPath = QString::fromLocal8Bit(arguments[2]);
    const QString templatePath = QString::fromLocal8Bit(arguments[3]);

    const auto formatLines = tools::readSource(formatPath);
    const auto parsed = formatLines ? tools::parseFormat(formatLines.value()) : formatLines.failure();
    if (!parsed)
        return tools::complain(formatPath, parsed.failure().description);
    const tools::Format &format = parsed.value();
    const auto rules = tools::readSource(templatePath);
    const QString fault = rules ? tools::templateFault(rules.value(), format) : rules.failure().description;
    if (!fault.isEmpty())
        return tools::complain(templatePath, fault);

    const auto schema = makeSchema(format, QString::fromLocal8Bit(arguments[4]), QString::fromLocal8Bit(arguments[5]));
    if (!schema)
        return tools::complain(u"makeConfiguration"_s, schema.failure().description);

    const std::pair<QStringView, QString> files[] = {
        {marc::fieldListFile, tools::fieldList(format)},
        {marc::subfieldListFile, tools::subfieldList(format)},
        {marc::descriptionFile, tools::descriptions(format)},
        {marc::templateFile, rules.value().join(u"\r\n"_s)},
    };
    for (const auto &[name, text] : files) {
        if (const auto written = platform::writeTextFile(folder + name, text); !written)
            return tools::complain(folder + name, written.failure().description);
    }
    if (const auto written = writeBytes(folder + marc::schemaFile, schema.value()); !written)
        return tools::complain(folder + marc::schemaFile, written.failure().description);
    return 0;
}
