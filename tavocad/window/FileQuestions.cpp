#include "tavocad/window/FileQuestions.h"

#include "platform/host/TavoInterfaces.h"
#include "platform/text/ResourceString.h"
#include "tavocad/window/QtText.h"

#include <QFile>
#include <QFileDialog>

namespace fs = std::filesystem;

namespace {

QString pathToQt(const fs::path& path) { return QFile::decodeName(QByteArray::fromStdString(path.native())); }

fs::path startFolder(TavoSession& session) {
    std::error_code error;
    if (TavoDocument* document = session.document(); document && !document->path().empty())
        return fs::absolute(document->path(), error).parent_path();
    const auto documents = session.host().documentManager()->documents();
    for (auto it = documents.rbegin(); it != documents.rend(); ++it)
        if (!(*it)->path().empty()) return fs::absolute((*it)->path(), error).parent_path();
    return fs::current_path(error);
}

} // namespace

std::optional<fs::path> askFile(QWidget& owner, TavoSession& session, TavoSession::FileQuestion question) {
    const bool saving = question == TavoSession::FileQuestion::save;
    QFileDialog dialog(&owner,
                       toQt(saving ? VORD_ResourceString("IDS_TAVO_WIN_SAVE", L"도면 저장")
                                   : VORD_ResourceString("IDS_TAVO_WIN_OPEN", L"도면 열기")),
                       pathToQt(startFolder(session)),
                       toQt(VORD_ResourceString("IDS_TAVO_WIN_DXF_FILES", L"DXF 도면 (*.dxf)")));
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(QStringLiteral("dxf"));
    if (TavoDocument* document = session.document(); document && saving)
        dialog.selectFile(document->path().empty() ? toQt(document->name().view())
                                                   : pathToQt(document->path().filename()));
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return QFile::encodeName(dialog.selectedFiles().value(0)).toStdString();
}
