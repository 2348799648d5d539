#include "platform/windows/com/Office.h"
#include "platform/windows/com/CellText.h"
#include "platform/windows/com/Dispatch.h"
#include "platform/windows/com/Failures.h"

namespace platform::windowsdesktop {
namespace {

using com::CDispatch;
using com::CInterface;
using com::CVariant;

class CWord final : public IWord {
public:
    explicit CWord(CInterface<IDispatch> application) : m_application(std::move(application)) {}
    std::string DocumentText() override
    {
        return m_application.Child(L"ActiveDocument").Child(L"Content").Get(L"Text").Text();
    }
    std::string SelectionText() override { return m_application.Child(L"Selection").Get(L"Text").Text(); }

private:
    CDispatch m_application;
};

class CCellRange final : public ICellRange {
public:
    explicit CCellRange(CInterface<IDispatch> range) : m_range(std::move(range)) {}
    std::int32_t Columns() override { return m_range.Child(L"Columns").Get(L"Count").Long(); }
    std::int32_t Rows() override { return m_range.Child(L"Rows").Get(L"Count").Long(); }
    std::string CellText(std::int32_t row, std::int32_t column) override
    {
        const CVariant cell = m_range.GetIndexed(L"Cells", {row, column});
        if (!cell.IsObject())
            return com::CellText(cell);
        return com::CellText(CDispatch(cell.Object(), m_cellMembers).Get(L"Value"));
    }

private:
    CDispatch m_range;
    std::shared_ptr<com::MemberIDs> m_cellMembers = std::make_shared<com::MemberIDs>();  // Each cell is a new object.
};

class CExcel final : public IExcel {
public:
    explicit CExcel(CInterface<IDispatch> application) : m_application(std::move(application)) {}
    std::unique_ptr<ICellRange> Selection() override
    {
        const CVariant selection = m_application.Get(L"Selection");
        if (!selection.IsObject() || !V_DISPATCH(&selection.Raw()))
            return nullptr;
        return std::make_unique<CCellRange>(selection.Object());
    }

private:
    CDispatch m_application;
};

// Nobody has registered, or who has is dead.
bool MeansNotRunning(HRESULT result)
{
    return result == MK_E_UNAVAILABLE || result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE) ||
           result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED) || result == CO_E_OBJNOTCONNECTED || result == RPC_E_DISCONNECTED;
}

// None when the application is not there.
CInterface<IDispatch> RunningObject(const wchar_t* name)
{
    const com::COutgoingCall call;
    CLSID id;
    if (FAILED(CLSIDFromProgID(name, &id)))
        return {};
    CInterface<IUnknown> application;
    const HRESULT result = GetActiveObject(id, nullptr, application.Receive());
    if (FAILED(result))
        application.Forget();
    if (!MeansNotRunning(result))
        com::Check(result);
    return application.As<IDispatch>();
}

}

std::unique_ptr<IWord> CComOffice::RunningWord()
{
    CInterface<IDispatch> application = RunningObject(L"Word.Application");
    return application ? std::make_unique<CWord>(std::move(application)) : nullptr;
}

std::unique_ptr<IExcel> CComOffice::RunningExcel()
{
    CInterface<IDispatch> application = RunningObject(L"Excel.Application");
    return application ? std::make_unique<CExcel>(std::move(application)) : nullptr;
}

}
