#pragma once
// Paths as the wide calls want them.

#include <string>
#include <string_view>

/// Absolute, "." and ".." resolved.
std::wstring Chemin_Complet(const std::wstring& Chemin);

/// Chemin: UTF-8. As it is when short; complete and under "\\?\" or "\\?\UNC\" when long.
std::wstring Chemin_Appel(std::string_view Chemin);

/// Directory of the program's executable, without a final separator.
std::wstring Repertoire_Executable();
