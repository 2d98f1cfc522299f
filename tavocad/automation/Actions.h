#pragma once

#include "platform/toolkit/UserAction.h"

#include <string_view>

class Fields;
class CWnd;
class CDialog;

// The action that the request `name` ("click", "type" ...) asks for. Throws RequestError for a field that is
// missing or makes no sense.
tv::ui::UserAction actionOf(std::wstring_view name, const Fields& fields);

// The window's control of that name; throws RequestError with the names most like it when there is none.
CWnd& controlOf(CDialog& dialog, std::wstring_view name);
