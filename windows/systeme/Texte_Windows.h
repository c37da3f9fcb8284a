#pragma once
// Text and paths between us and Windows: UTF-8 inside, UTF-16 at the calls; and the system's
// failures as texts and as the program's exception.

#include <string>
#include <string_view>

#include "platform/Erreur.h"

inline constexpr unsigned Page_Utf8 = 65001;

/// Page: code page of Texte. An invalid sequence becomes U+FFFD.
std::wstring En_Utf16(std::string_view Texte, unsigned Page = Page_Utf8);

/// Bytes of a code page; a character that it lacks becomes a similar one or "?".
std::string En_Page(std::wstring_view Texte, unsigned Page);
std::string En_Utf8(std::wstring_view Texte);

/// The same into a text that is reused: allocates only when a longer one comes.
void Ecrire_Utf8(std::wstring_view Texte, std::string& Resultat);

/// Code: value of GetLastError. One line in the system's language, without final full stop.
std::string Texte_Systeme(unsigned long Code);

/// Code: value of GetLastError after a call on a file; 53, 76, 70, and 57 for all the rest.
Erreur Erreur_Fichier(unsigned long Code, std::string_view Chemin);

/// Absolute, "." and ".." resolved.
std::wstring Chemin_Complet(const std::wstring& Chemin);

/// Chemin: UTF-8. As it is when short; complete and under "\\?\" or "\\?\UNC\" when long.
std::wstring Chemin_Appel(std::string_view Chemin);

/// Directory of the program's executable, without a final separator.
std::wstring Repertoire_Executable();
