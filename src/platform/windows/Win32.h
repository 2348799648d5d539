#pragma once
// The system's headers, for every source of the Windows program. Nothing newer than Windows 7 is declared; functions of
// later systems are looked up at run time.
#include <windows.h>

// These need the first one.
#include <commctrl.h>
#include <commdlg.h>
#include <ole2.h>
#include <olectl.h>
#include <richedit.h>
#include <shellapi.h>
#include <windowsx.h>

// Names that the system's headers take as macros although ours need them. Write the system's functions with their A or W.
#undef MessageBox
#undef FindText
#undef GetObject
#undef GetCurrentTime
#undef Yield
