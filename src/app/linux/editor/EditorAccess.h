#pragma once
#include <cstddef>

class CEditorView;

// What screen readers and other helps see of the editor: an editable text of several lines.
void InstallEditorAccess();
// Tells them of a change, in bytes, and of a moved caret or selection. Costs nothing while nobody listens.
void TellEdit(CEditorView& view, std::size_t begin, std::size_t removed, std::size_t inserted);
void TellCaret(CEditorView& view);
