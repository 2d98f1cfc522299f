// What holds for every dialog of the library and the host program without a line of its own: its Designer file fits its controls, it
// can be read aloud and walked through with Tab, and it has room for its texts in every language.
#include "platform/host/embedded/EmbeddedHost.h"
#include "platform/text/MessageManager.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/ModuleChain.h"
#include "platform/toolkit/TabCtrl.h"
#include "qt/Theme.h"
#include "tavocad/gallery/GalleryTemplates.h"
#include "tavocad/window/Templates.h"
#include "tests/qt/CutOffText.h"
#include "tests/support/AllDialogs.h"
#include "tests/support/NativeHand.h"
#include "tests/support/QtApp.h"

#include <QWidget>

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

namespace {

// Looks at the first window that comes up and cancels every window.
class Inspector : public tv::ui::Driver {
  public:
    explicit Inspector(std::function<void(CDialog&)> look) : m_look(std::move(look)) {}
    bool step(tv::ui::Waiting& waiting) override {
        if (!waiting.dialog) return false;
        if (auto look = std::exchange(m_look, nullptr)) look(*waiting.dialog);
        waiting.dialog->EndDialog(IDCANCEL);
        return true;
    }
    void lost(tv::ui::Waiting&) override { ADD_FAILURE() << "nobody to act"; }
    bool looked() const { return !m_look; }

  private:
    std::function<void(CDialog&)> m_look;
};

class EveryDialog : public testing::Test {
  protected:
    EveryDialog() {
        tv::qt::applyTheme(tv::qt::Theme::light);
        EXPECT_TRUE(registerGalleryTemplates());
        addProgramTemplates(toolkit);
    }

    void forEach(const std::function<void(CDialog&)>& look) {
        for (const SampleDialog& sample : allDialogs()) {
            SCOPED_TRACE(sample.templateName);
            Inspector inspector([&](CDialog& dialog) {
                ASSERT_EQ(dialog.templateName(), sample.templateName);
                QApplication::processEvents();
                look(dialog);
            });
            toolkit.setDriver(&inspector);
            sample.run();
            toolkit.setDriver(nullptr);
            EXPECT_TRUE(inspector.looked());
        }
    }

    static void forEachControl(const CWnd& parent, const std::function<void(const CWnd&)>& visit) {
        for (const CWnd* child : parent.children()) {
            visit(*child);
            forEachControl(*child, visit);
        }
    }

    // Each page of tabs in turn; once when there are none.
    static void forEachPage(CDialog& dialog, const std::function<void(int page)>& look) {
        CTabCtrl* tabs = nullptr;
        forEachControl(dialog, [&](const CWnd& wnd) {
            if (wnd.kind() == tv::ui::ControlKind::tab) tabs = static_cast<CTabCtrl*>(const_cast<CWnd*>(&wnd));
        });
        for (int i = 0; i < (tabs ? tabs->GetItemCount() : 1); ++i) {
            if (tabs) tabs->SetCurSel(i);
            for (int round = 0; round < 4; ++round)
                QApplication::processEvents();
            look(i);
        }
    }

    QApplication& app = qtApp();
    QtToolkit toolkit;
    tv::host::EmbeddedHost host;
};

TEST_F(EveryDialog, HasASample) {
    std::vector<std::string> sampled;
    for (const SampleDialog& sample : allDialogs()) {
        sampled.push_back(sample.templateName);
        sampled.insert(sampled.end(), sample.pages.begin(), sample.pages.end());
    }
    for (const auto& registered : tv::ui::ModuleChain::instance().all())
        EXPECT_THAT(sampled, testing::Contains(registered.name)) << "has no sample in AllDialogs.h";
}

TEST_F(EveryDialog, FitsItsDesignerFile) {
    forEach([&](CDialog& dialog) {
        std::vector<std::string> problems;
        for (const auto& problem : toolkit.bindingProblems(dialog))
            problems.push_back(tv::text::toUtf8(problem));
        EXPECT_THAT(problems, testing::IsEmpty());
        // Widgets without a control's name only arrange others: a person must not be able to use them.
        for (const QWidget* widget : toolkit.windowOf(dialog)->findChildren<QWidget*>())
            if (widget->focusPolicy() & Qt::TabFocus) {
                bool tied = false;
                for (const QObject* at = widget; at && !tied; at = at->parent())
                    tied = at->objectName().startsWith(QLatin1String("ID")) && at != toolkit.windowOf(dialog);
                EXPECT_TRUE(tied) << widget->metaObject()->className();
            }
    });
}

TEST_F(EveryDialog, CanBeReadAloudAndWalkedThrough) {
    forEach([&](CDialog& dialog) {
        QWidget& window = *toolkit.windowOf(dialog);
        EXPECT_FALSE(window.windowTitle().isEmpty());
        forEachControl(dialog, [&](const CWnd& wnd) {
            if (!wnd.focusable() || !wnd.shown() || wnd.kind() == tv::ui::ControlKind::tab) return;
            EXPECT_FALSE(toolkit.widgetOf(wnd)->accessibleName().isEmpty()) << wnd.name();
        });
        forEachPage(dialog, [&](int) {
            const auto order = dialog.tabOrder();
            std::vector<const CWnd*> visited;
            for (std::size_t i = 0; i < order.size(); ++i) {
                native::key(window, tv::ui::parseKey(L"Tab"));
                ASSERT_NE(dialog.GetFocus(), nullptr);
                visited.push_back(dialog.GetFocus());
                const QWidget* shown = toolkit.widgetOf(*dialog.GetFocus());
                const QWidget* focused = window.focusWidget();
                EXPECT_TRUE(focused && (focused == shown || shown->isAncestorOf(focused)))
                    << dialog.GetFocus()->name();
            }
            EXPECT_THAT(visited, testing::UnorderedElementsAreArray(order));
        });
    });
}

TEST_F(EveryDialog, HasRoomForItsTextsInEveryLanguage) {
    VORD_MSGFunction::AddFileBase(std::filesystem::path(KX_SOURCE_DIR) / "messages" / "kxgui");
    const char* const pictures = std::getenv("KX_PICTURES"); // a folder to look at them
    for (const std::uint16_t language : {1042, 1033, 1041, 1049, 2052}) {
        SCOPED_TRACE(language);
        VORD_MSGFunction::SetCurrentLanguageId(language);
        VORD_MSGFunction::LoadFile();
        forEach([&](CDialog& dialog) {
            forEachPage(dialog, [&](int page) {
                EXPECT_THAT(cutOffTexts(*toolkit.windowOf(dialog)), testing::IsEmpty());
                if (!pictures) return;
                for (const auto theme : {tv::qt::Theme::dark, tv::qt::Theme::light}) {
                    tv::qt::applyTheme(theme);
                    const char* const end = theme == tv::qt::Theme::dark ? "_dark.png" : ".png";
                    EXPECT_TRUE(toolkit.screenshot(
                        std::filesystem::path(pictures) /
                        (dialog.templateName() + std::to_string(language) + "_" + std::to_string(page) + end)));
                }
            });
        });
    }
    VORD_MSGFunction::Reset();
}

} // namespace
