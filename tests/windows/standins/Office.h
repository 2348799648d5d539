#pragma once
#include "windows/standins/Automation.h"
#include "windows/standins/Scene.h"

// A word processor and a spreadsheet that already run.
namespace standins {

class COrder;

extern const CLSID WordClass, ExcelClass;  // Of our own; the programs' names lead to them.

CRef<IDispatch> NewWord(const std::shared_ptr<CScene>& scene);
CRef<IDispatch> NewExcel(const std::shared_ptr<CScene>& scene);

// Puts one into the running-object table of the user's session, or takes it out again.
void SetWordRunning(CScene& scene, bool running);
void SetExcelRunning(CScene& scene, bool running);

// HKEY_CLASSES_ROOT\Word.Application\CLSID and the same for Excel. The registry must be that of a test's prefix.
bool RegisterOffice();
void UnregisterOffice();

void ObeyWord(COrder& order);
void ObeyExcel(COrder& order);

}
