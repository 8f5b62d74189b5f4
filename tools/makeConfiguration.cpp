// Builds the four configuration files of the program's folder from the format text and the office's template. Writes
// nothing if a line of either is malformed.
#include "marc/configurationFiles.h"
#include "platform/textFile.h"
#include "tools/formatText.h"
#include "tools/sourceText.h"
#include <utility>

using namespace Qt::StringLiterals;

int main(int count, char **arguments) {
    if (count != 4)
        return tools::complain(u"makeConfiguration"_s, u"usage: makeConfiguration FOLDER FORMATTEXT TEMPLATETEXT"_s);
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
    return 0;
}
