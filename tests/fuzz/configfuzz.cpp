// SPDX-License-Identifier: MIT
// The configuration file, and what is read out of it at the start.

#include "fuzztarget.h"

#include "config.h"
#include "functionkey.h"
#include "scanrecognizer.h"

#include <QFile>
#include <QStringDecoder>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

/// A file of its own for each input, since QSettings keeps what it knows of a file.
class IniFile
{
public:
    explicit IniFile(const QByteArray& bytes)
    {
        static const QTemporaryDir folder;
        static int count = 0;
        m_file.setFileName(folder.filePath(QString::number(++count) + u".ini"_s));
        promise(m_file.open(QIODevice::WriteOnly) && m_file.write(bytes) == bytes.size(), "the file can be written");
        m_file.close();
    }
    ~IniFile() { m_file.remove(); }
    IniFile(const IniFile&) = delete;
    IniFile& operator=(const IniFile&) = delete;

    QString name() const { return m_file.fileName(); }

private:
    QFile m_file;
};

bool isUtf8(const QByteArray& bytes)
{
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decode(bytes);
    return !decode.hasError();
}

void readKeys(const Config& config)
{
    for (const FunctionKey& key : configuredFunctionKeys(config)) {
        promise(!key.name.isEmpty() && key.actionType != 0, "a function key has a name and an action");
    }
    promise(configuredMenuEntries(config).size() <= 9, "the menu has an entry for each digit at most");
}

void readNumbers(const Config& config)
{
    const QString key = u"ElectronicPrescription:timeout"_s;
    bool isNumber = false;
    const int number = config.getString(key).trimmed().toInt(&isNumber);
    promise(config.getInt(key, 60) == (isNumber ? number : 60), "a number that is none gives the default");
}

/// A line that was written wrong takes nothing from the lines below it. A quotation mark that is not closed does, and
/// so does a backslash at the end of a line: both go on in the next line.
void readWhatFollows(const QByteArray& bytes)
{
    if (bytes.contains('"') || bytes.contains('\\')) {
        return;
    }
    const IniFile longer(bytes + "\n[Below]\nkey=one,two three\n");
    const Config config(longer.name());
    promise(config.getString(u"Below:key"_s) == u"one,two three"_s, "what stands below is read");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    const IniFile file(bytes);
    const Config config(file.name());
    promise(bool(config.reading()) || !config.reading().failure().detail.isEmpty(), "a failure has a detail");
    promise(isUtf8(bytes) || !config.reading(), "what is no UTF-8 is not taken for a configuration");
    promise(!bytes.contains("@Variant(") || !config.reading(), "a value is a text");
    readKeys(config);
    readNumbers(config);
    if (isUtf8(bytes) && !bytes.contains('\0') && !bytes.contains("@Variant(")) {
        readWhatFollows(bytes);
    }
    return 0;
}
