#include "qt/TemplateLoader.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "qt/controls/ComboBridge.h"
#include "qt/controls/CommandButton.h"
#include "qt/controls/FlowLayout.h"
#include "qt/controls/KxDrawArea.h"
#include "qt/controls/KxSwatchGrid.h"
#include "qt/controls/ListView.h"
#include "qt/controls/TreeView.h"

#include <QFile>
#include <QUiLoader>

namespace tv::qt {
namespace {

// Puts the library's own widgets where Designer files name them, and where Qt's lack something the controls
// need.
class Loader : public QUiLoader {
  public:
    Loader() { setLanguageChangeEnabled(false); }
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        QWidget* widget = nullptr;
        // The contents of a window, not a window: a QDialog within would take Enter and Escape for itself.
        if (className == QLatin1String("QDialog"))
            widget = new QWidget(parent);
        else if (className == QLatin1String("QComboBox"))
            widget = new DropDownBox(parent);
        else if (className == QLatin1String("QTableView"))
            widget = new ListView(parent);
        else if (className == QLatin1String("QTreeWidget"))
            widget = new TreeView(parent);
        else if (className == QLatin1String("QCommandLinkButton"))
            widget = new CommandButton(parent);
        else if (className == QLatin1String("KxSwatchGrid"))
            widget = new KxSwatchGrid(parent);
        else if (className == QLatin1String("KxDrawArea"))
            widget = new KxDrawArea(parent);
        else
            return QUiLoader::createWidget(className, parent, name);
        widget->setObjectName(name);
        return widget;
    }
    QLayout* createLayout(const QString& className, QObject* parent, const QString& name) override {
        if (className != QLatin1String("KxFlowLayout")) return QUiLoader::createLayout(className, parent, name);
        auto* layout = new FlowLayout(qobject_cast<QWidget*>(parent));
        layout->setObjectName(name);
        return layout;
    }
};

} // namespace

TemplateLoader::TemplateLoader() : m_paths{QStringLiteral(":/kxgui")} {}

QWidget* TemplateLoader::load(const std::string& templateName, QWidget* parent, std::wstring& problem) const {
    const QString fileName = QString::fromStdString(templateName) + QLatin1String(".ui");
    for (const QString& path : m_paths) {
        QFile file(path + QLatin1Char('/') + fileName);
        if (!file.exists()) continue;
        Loader loader;
        QWidget* widget = file.open(QIODevice::ReadOnly) ? loader.load(&file, parent) : nullptr;
        if (!widget)
            problem = text::format(
                VORD_ResourceString("IDS_TAVO_QT_BAD_TEMPLATE", L"대화상자 파일 %s을(를) 읽을 수 없습니다: %s"),
                file.fileName().toStdWString(),
                (loader.errorString().isEmpty() ? file.errorString() : loader.errorString())
                    .trimmed()
                    .toStdWString());
        return widget;
    }
    problem = text::format(VORD_ResourceString("IDS_TAVO_QT_NO_TEMPLATE", L"대화상자 파일 %s이(가) 없습니다."),
                           fileName.toStdWString());
    return nullptr;
}

QWidget* TemplateLoader::create(const char* className, QWidget* parent) {
    QWidget* widget = Loader().createWidget(QString::fromLatin1(className), parent, QString());
    return widget ? widget : new QWidget(parent);
}

} // namespace tv::qt
