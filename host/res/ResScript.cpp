// Look-ups of a parsed resource script, resource names and the parse error.
#include "host/res/ResScript.h"

#include "host/win/WinMenu.h"
#include "host/win/wsprintf.h"

#include <cwctype>

namespace svres {

ResName ResName::Text(std::wstring name)
{
    for (wchar_t& ch : name)
        ch = static_cast<wchar_t>(std::towupper(ch));
    return {0, std::move(name)};
}

std::wstring ResName::ToString() const
{
    return IsNumber() ? std::to_wstring(id) : name;
}

bool ResMenuItem::IsPopup() const { return (flags & MF_POPUP) != 0; }
bool ResMenuItem::IsSeparator() const { return (flags & MF_SEPARATOR) != 0; }

const std::wstring* ResScript::FindString(UINT id) const
{
    auto it = strings.find(id);
    return it == strings.end() ? nullptr : &it->second;
}

const ResMenu* ResScript::FindMenu(const ResName& name) const
{
    auto it = menus.find(name);
    return it == menus.end() ? nullptr : &it->second;
}

std::shared_ptr<const ResDialog> ResScript::FindDialog(const ResName& name) const
{
    auto it = dialogs.find(name);
    return it == dialogs.end() ? nullptr : it->second;
}

ResError::ResError(std::wstring file, int line, std::wstring message)
    : std::runtime_error(svwin::WideToUtf8(file + L"(" + std::to_wstring(line) + L"): " + message)),
      m_file(std::move(file)), m_line(line), m_message(std::move(message))
{
}

std::wstring ResError::Text() const
{
    return m_file + L"(" + std::to_wstring(m_line) + L"): " + m_message;
}

} // namespace svres
