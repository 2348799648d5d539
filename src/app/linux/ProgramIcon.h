#pragma once
#include <QIcon>

// The program's icon: a speech balloon with a face, drawn in every usual size.
QIcon ProgramIcon();
