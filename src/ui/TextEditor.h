#pragma once
#include <string>

// The commands of the text editor: its toolbar, its entries of the File menu, and saving. Failures of a command that has no
// guard of its own reach the caller's: the toolbar's or the menu's.
namespace textEditor {

// An empty text without a file; what was modified is saved first, without a question.
void FileNew();
void FileOpen();
void FileSave();
void FileRead();
void Stop();
void FileClose();  // As FileNew, with the bare window title.

// Saves the editor's text, followed by a line break; asks for a file when `fileName` is empty, unless the editor is.
// Failures: reported as Parlune:SaveFile; file, modified flag and title then stay as they were.
void SaveFile(const std::string& fileName);

// Every change of the text, the program's own included.
void txtRead_Change();
// Runs the command of a button: NEW, OPEN, SAVE, READ or STOP, in exactly these letters. Failures: reported as
// Parlune:tlbToolbar_ButtonClick.
void tlbToolbar_ButtonClick(const std::string& key);

// The entries of the File menu. Failures: reported as Parlune, under the entry's name.
void mnuFileNew_Click();
void mnuFileOpen_Click();
void mnuFileSave_Click();
void mnuFileRead_Click();
void mnuFileStop_Click();
void mnuFileClose_Click();

}
