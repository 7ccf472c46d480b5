// SPDX-License-Identifier: MIT
#include "savetofilelogic.h"

#include "beforesaving.h"
#include "config.h"
#include "dialog.h"
#include "wholefile.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QJsonDocument>

using namespace Qt::StringLiterals;

template struct MockFactory<SaveToFileLogic>;

namespace
{

Expected<void> write(const AbstractDocument& document, const QString& folder, const QString& file)
{
    if (folder.isEmpty()) {
        return Failure{tr::Tr(u"saveFolderNotConfigured"_s, u"в настройках нет Register:data"_s),
                       u"Register:data is not configured"_s};
    }
    return writeWholeFile(folder, file, QJsonDocument(document.toJson()).toJson());
}

void show(const Failure& failure, const QString& folder)
{
    const tr::Tr message(u"saveDocumentError"_s,
                         u"Документ не сохранён на диск, в силе прежняя запись.\n"
                         "Папка: %1\nПричина: %2\n"
                         "Освободите место на диске или проверьте доступ к папке и повторите действие."_s);
    Dialog::create()->showMessage(message.arg(folder).arg(failure.text.ui()), Dialog::Error, 1, 0);
}

} // namespace

SaveToFileLogic::~SaveToFileLogic() = default;

bool SaveToFileLogic::save(const QSharedPointer<AbstractDocument>& document, const QString& file)
{
    if (!document) {
        return false;
    }
    if (BeforeSaving* host = Singleton<BeforeSaving>::instance) {
        host->complete(*document);
    }
    const QString folder = Singleton<Config>::get()->getString(u"Register:data"_s);
    const Expected<void> written = write(*document, folder, file.isEmpty() ? document->fileName() : file);
    if (!written) {
        Log4Qt::LogManager::logger(u"document"_s)
            ->error(u"A document could not be saved: "_s + written.failure().detail);
        show(written.failure(), folder);
    }
    return bool(written);
}
