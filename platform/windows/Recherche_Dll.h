#pragma once
// Where a library lies that does not come with Windows.

#include <string>

/// Full path of the first file of this name in the program's directory, the Windows system
/// directories and the absolute entries of PATH, in this order; never the current directory.
/// Empty when there is none.
std::wstring Trouver_Dll(const std::wstring& Nom);
