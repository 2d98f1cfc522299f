// The bar of properties in the window, by mouse and keyboard.
#include "tests/tavocad/ScriptedWindow.h"

#include "kxgui/controls/PropertiesBar.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/text/SettingsStore.h"
#include "qt/Theme.h"

using kx::controls::Property;

namespace {

class PropertiesBarWindow : public ScriptedWindow {
  protected:
    CPropertiesBar& bar() { return *session.propertiesBar(); }
    CComboBox& list(Property property) { return bar().box(property).combo(); }
    QWidget& widget(Property property) { return *toolkit.widgetOf(list(property)); }
    void rest() {
        then([] { QTest::qWait(80); }); // the lists follow a moment later
    }
    void chooseOn(Property property, const wchar_t* text) {
        then([this, property, text] {
            tv::ui::UserAction action;
            action.kind = tv::ui::UserAction::Kind::choose;
            action.text = text;
            NativeHand hand(toolkit);
            EXPECT_TRUE(hand.act(list(property), action));
        });
    }
};

} // namespace

TEST_F(PropertiesBarWindow, IsUsedByMouseAndKeyboard) {
    enter("OPEN " + quoted(drawing));
    rest();
    then([&] {
        EXPECT_EQ(list(Property::layer).GetWindowText(), L"0");
        EXPECT_EQ(toolkit.bindingProblems(bar()), std::vector<std::wstring>());
    });
    chooseOn(Property::layer, L"WALLS");
    rest();
    then([&] {
        EXPECT_EQ(variable(L"CLAYER"), L"WALLS");
        EXPECT_TRUE(action("실행 취소(&U)")->isEnabled());
        command.setFocus();
    });
    key(Qt::Key_F6);
    then([&] {
        EXPECT_EQ(toolkit.active(), &bar());
        EXPECT_TRUE(widget(Property::layer).hasFocus());
    });
    key(Qt::Key_Tab); // the button of the layer manager
    key(Qt::Key_Tab);
    then([&] { EXPECT_TRUE(widget(Property::color).hasFocus()); });
    key(Qt::Key_Escape);
    then([&] {
        EXPECT_EQ(toolkit.active(), nullptr);
        EXPECT_TRUE(command.hasFocus());
    });
    key(Qt::Key_F6);
    key(Qt::Key_F6);
    then([&] { EXPECT_TRUE(view.hasFocus()) << "from the bar on to the drawing"; });
    enter("UNITS");
    then([&] {
        tv::ui::UserAction choice;
        choice.kind = tv::ui::UserAction::Kind::choose;
        choice.index = 0;
        EXPECT_FALSE(NativeHand(toolkit).act(list(Property::layer), choice)) << "a dialog is open above it";
    });
    click("IDCANCEL");
    enter("UNDO");
    rest();
    then([&] { EXPECT_EQ(list(Property::layer).GetWindowText(), L"0"); });
    run();
}

TEST_F(PropertiesBarWindow, FitsNarrowWindowsAndCanBeHidden) {
    QWidget* row = toolkit.windowOf(bar());
    ASSERT_TRUE(row && row->isVisible());
    then([&] { window.resize(1400, 760); });
    then([&] {
        const int oneRow = row->height();
        EXPECT_EQ(widget(Property::plotStyle).y(), widget(Property::layer).y());
        window.resize(480, 760);
        QTest::qWait(20);
        EXPECT_GT(row->height(), 2 * oneRow - 10);
        EXPECT_LE(window.width(), 480);
        for (const Property property : {Property::layer, Property::textHeight, Property::plotStyle})
            EXPECT_TRUE(row->rect().contains(widget(property).geometry()));
        tv::qt::applyTheme(tv::qt::Theme::dark);
        tv::qt::applyTheme(tv::qt::Theme::light);
    });
    menu("특성 도구막대(&B)");
    then([&] {
        EXPECT_FALSE(row->isVisible());
        EXPECT_EQ(session.host().settings()->getInt(TavoSession::settingsSection, L"PropertiesBar"), 0);
    });
    enter("PROPERTIESBAR on");
    then([&] {
        EXPECT_TRUE(row->isVisible());
        EXPECT_TRUE(action("특성 도구막대(&B)")->isChecked());
    });
    run();
}
