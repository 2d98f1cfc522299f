#include "kxgui/layers/LayerBoxes.h"

#include "kxgui/frame/Messages.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Dialog.h"

namespace kx::layers {
namespace {

std::wstring renameCaption() {
    return VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_14", L"도면층 - 이름바꾸기").c_str();
}

std::wstring offCaption() {
    return VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_16", L"도면층 - 현재 도면층 끄기").c_str();
}

std::wstring offText() {
    return tv::text::format(
        L"%s%s%s", VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_53", L"현재 도면층을 끄겠습니까?."),
        VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_2",
                            L"\r\n지금부터 작성하는 객체는 해당 도면층을 다시 켜기 전까지 "),
        VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_1", L"\r\n도면에 표시되지 않습니다."));
}

std::wstring mergeCaption() {
    return VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_56", L"도면층 - 병합").c_str();
}

} // namespace

LayerBox notDeletedBox(int selected, int refused) {
    std::wstring text =
        selected == refused
            ? std::wstring(
                  VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_31", L"선택된 도면층이 삭제되지 않았습니다.")
                      .c_str())
            : tv::text::format(L"%s %d %s %d %s",
                               VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_32", L"선택한 도면층 "), selected,
                               VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_5", L"개 중 "), refused,
                               VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_6", L"개를 삭제할 수 없습니다."));
    text += L"\r\n\r\n";
    text += VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_11", L"다음의 도면층을 삭제할 수 없습니다.");
    // Always all of them, not those that applied.
    for (const OdString& reason :
         {OdString(VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_19", L"도면층 0 및 정의점")),
          OdString(VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_51", L"현재 도면층")),
          OdString(VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_37", L"외부 참조 종속 도면층")),
          OdString(VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_7", L"객체를 포함하는 도면층"))}) {
        text += L"\r\n\t";
        text += reason.view();
    }
    return {VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_13", L"도면층 - 삭제되지 않음").c_str(), text};
}

LayerBox oneCurrentOnlyBox() {
    return {VORD_ResourceString("IDS_CAD_GUI_LAYER_SET_CUR_LAYER", L"현재 도면층 설정").c_str(),
            VORD_ResourceString("IDS_CAD_GUI_LAYER_CANNOT_SET_CUR_MANY", L"여러개를 현재로 설정할 수 없습니다.")
                .c_str()};
}

LayerBox notCurrentBox() {
    return {
        VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_17", L"도면층 - 현재 도면층으로 만들 수 없음").c_str(),
        VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_34",
                            L"선택한 도면층은 현재 도면층으로 만들 수 없습니다.\r\n\r\n다음 도면층은 현재 "
                            L"도면층으로 만들 수 없습니다.\r\n외부 참조에 종속된 도면층\r\n동결된 도면층")
            .c_str()};
}

LayerBox drawOnLayerOffBox() { return {offCaption(), offText()}; }

LayerBox keepsNameBox() {
    std::wstring text =
        VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_33", L"선택한 도면층은 이름을 바꿀 수 없습니다.\r\n\r\n")
            .c_str();
    text += VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_10", L"다음 도면층의 이름을 바꿀 수 없습니다:\r\n");
    text += VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_18", L"도면층 0");
    text += L"\r\n";
    text += kRegionViewLayer;
    text += L"\r\n";
    text += VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_38", L"외부 참조에 종속된 도면층");
    return {renameCaption(), text};
}

LayerBox nameBox(LayerTextFault fault) {
    switch (fault) {
    case LayerTextFault::empty:
        return {renameCaption(),
                VORD_ResourceString("IDS_TAVO_LAYER_NAME_EMPTY", L"도면층 이름을 입력하십시오.").c_str()};
    case LayerTextFault::tooLong:
        return {renameCaption(),
                VORD_ResourceString("IDS_CAD_GUI_LAYER_LONG_NAME_ERR", L"이름을 너무 길게 입력하였습니다.")
                    .c_str()};
    case LayerTextFault::character:
        return {
            renameCaption(),
            VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_55",
                                L"도면층 이름에 유효하지 않은 문자가 있습니다.\n\n다음 문자는 도면층 이름에 "
                                L"사용할 수 없습니다.\n\t<>/\\\"\":;?*|,=`")
                .c_str()};
    case LayerTextFault::taken:
        return {renameCaption(),
                VORD_ResourceString("IDS_CAD_GUI_LAYER_DUPL_NAME_ERR", L"같은 이름이 존재합니다.").c_str()};
    case LayerTextFault::none:
        break;
    }
    return {};
}

// The keys are those of the name's box where the message files hold one text for both.
LayerBox descriptionBox(LayerTextFault fault) {
    const std::wstring caption =
        VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_14", L"도면층 - 설명바꾸기").c_str();
    if (fault == LayerTextFault::tooLong)
        return {caption,
                VORD_ResourceString("IDS_CAD_GUI_LAYER_LONG_DESC_ERR", L"설명을 너무 길게 입력하였습니다.")
                    .c_str()};
    return {caption,
            VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_55",
                                L"도면층 설명에 유효하지 않은 문자가 있습니다.\n\n다음 문자는 도면층 설명에 "
                                L"사용할 수 없습니다.\n\t<>/\\\"\":;?*|,=`")
                .c_str()};
}

LayerBox notFrozenBox() {
    std::wstring text =
        VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_40", L"이 도면층은 현재 도면층이므로 동결할 수 없습니다.")
            .c_str();
    text += VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_4",
                                L"\r\n현재 도면층을 동결하는 대신 끌 수 있습니다. 또는 다른 도면층을");
    text += VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_3", L"\r\n현재 도면층으로 만들 수 있습니다.");
    return {VORD_ResourceString("IDS_CAD_GUI_LAYER_LAYER_FROZEN", L"도면층 - 도면층 동결").c_str(), text};
}

LayerBox zeroNotMergedBox() {
    return {mergeCaption(), VORD_ResourceString("IDS_ZEL_COMMANDS_ACTIONLAYMRGSELECTTOOL_6",
                                                L"\n\"0\" 도면층을 병합할 수 없습니다.")
                                .c_str()};
}

LayerBox currentNotMergedBox() {
    return {mergeCaption(), VORD_ResourceString("IDS_ZEL_COMMANDS_ACTIONLAYMRGSELECTTOOL_5",
                                                L"\n현재 도면층을 병합할 수 없습니다.")
                                .c_str()};
}

LayerBox filterKeptBox(std::wstring_view filter) {
    return {VORD_ResourceString("IDS_CAD_GUI_LAYER_FILTER_DELETE_LAYER", L"도면층 - 필터 삭제").c_str(),
            tv::text::format(VORD_ResourceString("IDS_CAD_GUI_LAYER_CANNOT_DELETE_FILTER",
                                                 L"도면층 필터 \"%s\" 은(는) 삭제할 수 없습니다."),
                             std::wstring(filter))};
}

LayerBox plotStylesByColorBox() {
    return {VORD_ResourceString("IDS_LAYERDLG_0", L"도면층 특성 관리자").c_str(),
            VORD_ResourceString("IDS_TAVO_LAYER_PLOT_BY_COLOR",
                                L"이 도면의 플롯 스타일은 색상에 따르므로 도면층에 정할 수 없습니다.")
                .c_str()};
}

LayerBox editedLayerGoneBox() {
    return {VORD_ResourceString("IDS_LAYERDLG_0", L"도면층 특성 관리자").c_str(),
            VORD_ResourceString("IDS_TAVO_LAYER_EDITED_GONE",
                                L"편집하던 도면층이 그사이 도면에서 없어져 편집한 내용을 버렸습니다.")
                .c_str()};
}

LayerBox notWrittenBox(const OdDbDatabase& database, Tavo::ErrorStatus status) {
    const std::wstring caption = VORD_ResourceString("IDS_LAYERDLG_0", L"도면층 특성 관리자").c_str();
    if (database.isReadOnly())
        return {caption, VORD_ResourceString("IDS_TAVO_LAYER_READ_ONLY",
                                             L"도면이 읽기 전용이므로 도면층을 바꿀 수 없습니다.")
                             .c_str()};
    if (status == Tavo::eNotHandled)
        return {caption, VORD_ResourceString("IDS_TAVO_LAYER_NOT_HELD",
                                             L"이 도면의 버전에는 저장할 수 없는 값이므로 바꾸지 않았습니다.")
                             .c_str()};
    return {caption, VORD_ResourceString("IDS_TAVO_LAYER_NOT_WRITTEN",
                                         L"도면이 변경을 받아들이지 않아 도면층을 그대로 두었습니다.")
                         .c_str()};
}

void warn(CWnd* parent, const LayerBox& box) {
    MessageDlg(parent, box.text.c_str(), box.caption.c_str(), 0x30);
}

bool confirm(CWnd* parent, const LayerBox& box) {
    return MessageDlg(parent, box.text.c_str(), box.caption.c_str(), 0x121) == IDOK;
}

bool askCurrentOff(CWnd* parent) {
    const int answer = QuestionDlg(
        parent, offCaption().c_str(),
        VORD_ResourceString("IDS_CAD_GUI_LAYER_ASK_HOWTO_USER", L" 어떻게 하시겠습니까?").c_str(),
        offText().c_str(),
        VORD_ResourceString("IDS_CAD_GUI_LAYER_SHUTDOWN_CUR_LAYER", L"현재 도면층을 끕니다.").c_str(),
        VORD_ResourceString("IDS_CAD_GUI_LAYER_MAINTAIN_CUR_LAYER_ON", L"현재 도면층 켠 상태로 유지").c_str(),
        1, 1);
    return answer != 1;
}

} // namespace kx::layers
