#pragma once
#include <string>

// Reading aloud: texts, where they come from, and how they are cut into pieces that are spoken well. Nothing waits for
// speech; pieces are queued with the character.
namespace bRead {

// Speaks a text of any length: whole up to 100 characters, else by paragraphs, lines and sentences. Failures: reported as
// bReadTextFile:ReadContents; pieces already queued stay queued.
void ReadContents(const std::string& text);

// Reads the clipboard's text, if any; shows a hidden character for it. Failures: reported as bReadTextFile:ReadClipboard.
void ReadClipboard();

// Reads a text file; asks for one when `path` is empty. Failures: reported as bReadTextFile:ReadTextFile.
void ReadTextFile(const std::string& path);

// The text of Word's document or selection, of Excel's selected cells, or the sentence that says that the application is
// not open. Failures while reading end quietly with the text gathered so far.
std::string ReadWordDocument();
std::string ReadWordSelection();
std::string ReadExcelSelection();

// Reads the editor: its selection, or from the caret on; the clipboard when the editor is empty. Failures: reported as
// Parlune:ReadText.
void ReadText();

}
