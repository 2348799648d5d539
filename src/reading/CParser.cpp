#include "reading/CParser.h"
#include "base/text/Text.h"
#include "common/Version.h"
#include "common/zbErrorTrap.h"
#include "platform/MessageBoxes.h"
#include "platform/Platform.h"

namespace {

void TellThatItFailed()
{
    const zbErrorTrap::CurrentError& error = zbErrorTrap::LastError();
    platform::Current().messageBoxes.Show({std::to_string(error.number) + " : " + error.description, version::Title,
                                           platform::BoxButtons::Ok, platform::BoxIcon::Exclamation});
}

void Cut(std::string_view text, std::string_view delimiter, std::vector<std::string>& fields)
{
    std::string_view rest = text::Trim(text);
    while (!rest.empty()) {
        const std::size_t found = delimiter.empty() ? std::string_view::npos : rest.find(delimiter);
        if (found == std::string_view::npos) {
            fields.emplace_back(rest);
            return;
        }
        fields.emplace_back(text::Trim(rest.substr(0, found)));
        rest = text::Trim(rest.substr(found + delimiter.size()));
    }
}

}

void CParser::ParseIt(std::string_view text, std::string_view delimiter)
{
    m_fields.clear();
    try {
        Cut(text, delimiter, m_fields);
    } catch (const platform::CProgramEnded&) {
        throw;
    } catch (...) {
        zbErrorTrap::SetCurrentError();
        zbErrorTrap::IgnoreFailure(TellThatItFailed);
        zbErrorTrap::ClearCurrentError();
    }
}

const std::string& CParser::Field(std::int32_t index) const
{
    static const std::string none;
    return index >= 1 && index <= FieldCount() ? m_fields[static_cast<std::size_t>(index - 1)] : none;
}

std::vector<std::string> CParser::GetFieldArray() const
{
    return m_fields.empty() ? std::vector<std::string>{""} : m_fields;
}
