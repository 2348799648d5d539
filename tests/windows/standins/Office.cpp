#include "windows/standins/Office.h"
#include "windows/standins/Order.h"
#include "windows/standins/Registry.h"

namespace standins {

const CLSID WordClass = {0x8A3D7E15, 0x4B60, 0x4D2C, {0xB7, 0x91, 0x05, 0xE2, 0x6F, 0x38, 0xC1, 0x4A}};
const CLSID ExcelClass = {0x8A3D7E16, 0x4B60, 0x4D2C, {0xB7, 0x91, 0x05, 0xE2, 0x6F, 0x38, 0xC1, 0x4A}};

namespace {

constexpr wchar_t WordText[] = L"{8A3D7E15-4B60-4D2C-B791-05E26F38C14A}";
constexpr wchar_t ExcelText[] = L"{8A3D7E16-4B60-4D2C-B791-05E26F38C14A}";
constexpr DISPID DefaultMember = 0;

template <class Object, class... Arguments> CValue Make(Arguments&&... arguments)
{
    return CValue(CRef<IDispatch>::Adopt(new Object(std::forward<Arguments>(arguments)...)).Get());
}

std::int32_t LengthOf(const std::string& text) { return static_cast<std::int32_t>(Wide(text).size()); }

// A piece of the document, or the selection.
class CTextRange final : public CAutomationObject {
public:
    using Source = std::function<std::string&()>;
    CTextRange(std::shared_ptr<CScene> scene, const std::string& path, Source text)
        : CAutomationObject(std::move(scene), path), m_text(std::move(text))
    {
        ReadWrite(
            "Text", DefaultMember, 's', [this] { return CValue(m_text()); },
            [this](const CValue& value) { m_text() = value.Text(); });
        Constant("Start", 3, CValue(std::int32_t{0}));
        ReadOnly("End", 4, 'l', [this] { return CValue(LengthOf(m_text())); });
        Constant("Type", 200, CValue(std::int32_t{2}));
        ReadOnly("Range", 201, 'd', [this] { return Make<CTextRange>(SharedScene(), Path() + ".Range", m_text); });
    }

private:
    Source m_text;
};

class CDocument final : public CAutomationObject {
public:
    explicit CDocument(std::shared_ptr<CScene> scene) : CAutomationObject(std::move(scene), "Word.ActiveDocument")
    {
        Constant("Name", 1, CValue("Document1"));
        ReadOnly("Content", 41, 'd', [this] { return Whole("Content"); });
        Callable("Range", 42, "VV", 'd', [this](const CCall&) { return Whole("Range"); });
    }

private:
    CValue Whole(const std::string& name)
    {
        return Make<CTextRange>(SharedScene(), Path() + "." + name,
                                [scene = SharedScene()]() -> std::string& { return scene->office.document; });
    }
};

class CWord final : public CAutomationObject {
public:
    explicit CWord(std::shared_ptr<CScene> scene) : CAutomationObject(std::move(scene), "Word")
    {
        Constant("Name", DefaultMember, CValue("Word"));
        Constant("Visible", 23, CValue(true));
        ReadOnly("ActiveDocument", 3, 'd', [this] { return Make<CDocument>(SharedScene()); });
        ReadOnly("Selection", 5, 'd', [this] {
            return Make<CTextRange>(SharedScene(), "Word.Selection",
                                    [scene = SharedScene()]() -> std::string& { return scene->office.selection; });
        });
        Callable("Quit", 1105, "VVV", ' ', [](const CCall&) { return CValue(); });
    }
};

// Rows or columns: all that is asked of them is how many.
class CCount final : public CAutomationObject {
public:
    CCount(std::shared_ptr<CScene> scene, const std::string& path, std::int32_t count)
        : CAutomationObject(std::move(scene), path)
    {
        Constant("Count", 118, CValue(count));
    }
};

// What Value2 gives: no dates, no currency, but their numbers.
CValue PlainNumber(CValue value)
{
    if (value.Get().vt == VT_DATE || value.Get().vt == VT_CY)
        value.ConvertTo(VT_R8);
    return value;
}

class CCell final : public CAutomationObject {
public:
    CCell(std::shared_ptr<CScene> scene, const std::string& path, std::pair<std::int32_t, std::int32_t> place)
        : CAutomationObject(std::move(scene), path), m_place(place)
    {
        Indexed("_Default", DefaultMember, "VV", 'v', [this](const CCall&) { return Value(); });
        Indexed("Value", 6, "V", 'v', [this](const CCall&) { return Value(); });
        ReadOnly("Value2", 1388, 'v', [this] { return PlainNumber(Value()); });
        ReadOnly("Text", 138, 'v', [this] { return CValue(Value().Text()); });
        Constant("Count", 118, CValue(std::int32_t{1}));
    }

private:
    CValue Value()
    {
        const auto found = Scene().office.cells.find(m_place);
        return found == Scene().office.cells.end() ? CValue() : found->second;
    }
    std::pair<std::int32_t, std::int32_t> m_place;
};

class CCells final : public CAutomationObject {
public:
    CCells(std::shared_ptr<CScene> scene, const std::string& path) : CAutomationObject(std::move(scene), path)
    {
        const COffice& office = Scene().office;
        ReadOnly("Columns", 241, 'd',
                 [this, &office] { return Make<CCount>(SharedScene(), Path() + ".Columns", office.columns); });
        ReadOnly("Rows", 258, 'd', [this, &office] { return Make<CCount>(SharedScene(), Path() + ".Rows", office.rows); });
        ReadOnly("Count", 118, 'l', [&office] { return CValue(office.rows * office.columns); });
        Indexed("Cells", 238, "VV", 'd', [this](const CCall& call) { return Cell(call); });
        Indexed("Item", 170, "vV", 'd', [this](const CCall& call) { return Cell(call); });
    }

private:
    CValue Cell(const CCall& call)
    {
        if (call.Omitted(0))
            return Make<CCells>(SharedScene(), Path() + ".Cells");
        const std::int32_t row = call.Number(0), column = call.Number(1, 1);
        if (row < 1 || column < 1)
            throw CComFailure{static_cast<HRESULT>(0x800A03EC)};
        const std::string place = "[" + std::to_string(row) + "," + std::to_string(column) + "]";
        return Make<CCell>(SharedScene(), Path() + ".Cell" + place, std::pair{row, column});
    }
};

// A selection that is no range.
class CChart final : public CAutomationObject {
public:
    explicit CChart(std::shared_ptr<CScene> scene) : CAutomationObject(std::move(scene), "Excel.Chart")
    {
        Constant("Name", 110, CValue("Chart"));
    }
};

class CExcel final : public CAutomationObject {
public:
    explicit CExcel(std::shared_ptr<CScene> scene) : CAutomationObject(std::move(scene), "Excel")
    {
        Constant("Name", 110, CValue("Excel"));
        Constant("Visible", 558, CValue(true));
        ReadOnly("Selection", 147, 'd', [this] { return Selection(); });
        ReadOnly("ActiveCell", 305, 'd', [this] {
            return Make<CCell>(SharedScene(), "Excel.ActiveCell", std::pair<std::int32_t, std::int32_t>{1, 1});
        });
        Callable("Quit", 302, "", ' ', [](const CCall&) { return CValue(); });
    }

private:
    CValue Selection()
    {
        const std::string& what = Scene().office.selected;
        if (what == "range")
            return Make<CCells>(SharedScene(), "Excel.Selection");
        if (what == "chart")
            return Make<CChart>(SharedScene());
        return what == "text" ? CValue("a text") : CValue(static_cast<IDispatch*>(nullptr));
    }
};

void SetRunning(DWORD& registration, bool running, REFCLSID id, const std::function<CRef<IDispatch>()>& make)
{
    if (running && registration == 0)
        RegisterActiveObject(make().Get(), id, ACTIVEOBJECT_STRONG, &registration);
    if (running || registration == 0)
        return;
    RevokeActiveObject(registration, nullptr);
    registration = 0;
}

bool ReadRunning(COrder& order, bool& running)
{
    running = order.Skip("here");
    return running || order.Skip("gone");
}

struct CKind {
    const char* name;
    VARTYPE type;
};

constexpr CKind Kinds[] = {{"text", VT_BSTR}, {"number", VT_R8}, {"short", VT_I2},  {"long", VT_I4},
                           {"date", VT_DATE}, {"money", VT_CY},  {"truth", VT_BOOL}};

// Numbers of what Excel shows as #N/A and the like.
CValue ErrorValue(std::int32_t number)
{
    CValue value(number);
    value.Raw().vt = VT_ERROR;
    value.Raw().scode = static_cast<SCODE>(0x800A0000U + static_cast<std::uint32_t>(number));
    return value;
}

CValue ReadCell(COrder& order)
{
    const std::string kind = order.Word();
    if (kind == "error")
        return ErrorValue(order.Number());
    CValue value;
    value.Raw().vt = kind == "null" ? VT_NULL : VT_EMPTY;
    if (kind == "null" || kind == "empty")
        return value;
    for (const CKind& known : Kinds)
        if (kind == known.name) {
            value = CValue(order.Word());
            const VARTYPE numbers = known.type == VT_DATE ? VARTYPE{VT_R8} : known.type;  // A date is given as its number.
            Require(SUCCEEDED(value.ConvertTo(numbers)) && SUCCEEDED(value.ConvertTo(known.type)));
            return value;
        }
    throw CNotUnderstood{};
}

}

CRef<IDispatch> NewWord(const std::shared_ptr<CScene>& scene) { return CRef<IDispatch>::Adopt(new CWord(scene)); }

CRef<IDispatch> NewExcel(const std::shared_ptr<CScene>& scene) { return CRef<IDispatch>::Adopt(new CExcel(scene)); }

void SetWordRunning(CScene& scene, bool running)
{
    SetRunning(scene.office.word, running, WordClass, [&] { return NewWord(scene.shared_from_this()); });
}

void SetExcelRunning(CScene& scene, bool running)
{
    SetRunning(scene.office.excel, running, ExcelClass, [&] { return NewExcel(scene.shared_from_this()); });
}

bool RegisterOffice()
{
    return SetClassesDefault(L"Word.Application\\CLSID", WordText) &&
           SetClassesDefault(L"Excel.Application\\CLSID", ExcelText);
}

void UnregisterOffice()
{
    DeleteClassesKey(L"Word.Application");
    DeleteClassesKey(L"Excel.Application");
}

void ObeyWord(COrder& order)
{
    bool running = false;
    if (ReadRunning(order, running))
        SetWordRunning(order.scene, running);
    else if (order.Skip("document"))
        order.scene.office.document = order.Word();
    else {
        Require(order.Skip("selection"));
        order.scene.office.selection = order.Word();
    }
}

void ObeyExcel(COrder& order)
{
    COffice& office = order.scene.office;
    bool running = false;
    if (ReadRunning(order, running))
        SetExcelRunning(order.scene, running);
    else if (order.Skip("size")) {
        office.rows = order.Number();
        office.columns = order.Number();
        office.cells.clear();
    } else if (order.Skip("cell")) {
        const std::int32_t row = order.Number(), column = order.Number();
        office.cells[{row, column}] = ReadCell(order);
    } else {
        Require(order.Skip("selection"));
        office.selected = order.Word();
        Require(office.selected == "range" || office.selected == "chart" || office.selected == "nothing" ||
                office.selected == "text");
    }
}

}
