// The driver of the end-to-end tests. Reads one command per line on its standard input and answers
// with one line: fields separated by tabs, records by the character U+001E, UTF-8, with \\ \t \n \r
// escaped. The first field of an answer is "OK" or "NON".

#include <fcntl.h>
#include <io.h>

#include <functional>
#include <iostream>
#include <map>

#include "outils/Poste_Windows.h"

namespace {

using Champs = std::vector<std::wstring>;

Programme_Lance Programme;

std::string En_Utf8(const std::wstring& Texte) {
  const int Unites = static_cast<int>(Texte.size());
  std::string Octets(Texte.size() * 3, '\0');
  Octets.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, Texte.data(), Unites, Octets.data(),
                          static_cast<int>(Octets.size()), nullptr, nullptr)));
  return Octets;
}

std::wstring En_Utf16(const std::string& Octets) {
  std::wstring Texte(Octets.size(), L'\0');
  Texte.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_UTF8, 0, Octets.data(), static_cast<int>(Octets.size()), Texte.data(),
                          static_cast<int>(Texte.size()))));
  return Texte;
}

std::wstring Proteger(const std::wstring& Texte) {
  static const std::map<wchar_t, const wchar_t*> Remplacements = {
      {L'\\', L"\\\\"}, {L'\t', L"\\t"}, {L'\n', L"\\n"}, {L'\r', L"\\r"}};
  std::wstring Sortie;
  for (const wchar_t C : Texte) {
    const auto Trouve = Remplacements.find(C);
    Trouve == Remplacements.end() ? Sortie += C : Sortie += Trouve->second;
  }
  return Sortie;
}

Champs Decouper(const std::wstring& Ligne) {
  Champs Tous(1);
  for (const wchar_t C : Ligne) C == L'\t' ? Tous.emplace_back() : Tous.back() += C;
  return Tous;
}

std::wstring Oui(const std::wstring& Suite = {}) {
  return Suite.empty() ? L"OK" : L"OK\t" + Suite;
}
std::wstring Oui_Si(bool Condition) {
  return Condition ? L"OK" : L"NON";
}

long long Nombre(const std::wstring& Texte) {
  return std::stoll(Texte, nullptr, 0);
}
HWND Fenetre(const std::wstring& Texte) {
  return reinterpret_cast<HWND>(static_cast<INT_PTR>(Nombre(Texte)));
}

std::wstring Ecrire(const std::vector<Description_Fenetre>& Toutes) {
  std::wstring Sortie = L"OK";
  for (const auto& D : Toutes) {
    Sortie += L'\x1E';
    for (const long long N :
         {static_cast<long long>(reinterpret_cast<INT_PTR>(D.Poignee)),
          static_cast<long long>(D.Numero), static_cast<long long>(D.Visible),
          static_cast<long long>(D.Active), static_cast<long long>(D.Foyer),
          static_cast<long long>(D.Place.left), static_cast<long long>(D.Place.top),
          static_cast<long long>(D.Place.right), static_cast<long long>(D.Place.bottom)}) {
      Sortie += std::to_wstring(N) + L'\t';
    }
    Sortie += D.Classe + L'\t' + Proteger(D.Texte);
  }
  return Sortie;
}

// Like a mouse: a button that is disabled or hidden, or whose window is disabled, takes no click.
std::wstring Cliquer(HWND Bouton) {
  const bool Possible = IsWindowVisible(Bouton) && IsWindowEnabled(Bouton) &&
                        IsWindowEnabled(GetAncestor(Bouton, GA_ROOT));
  return Oui_Si(Possible && PostMessageW(Bouton, BM_CLICK, 0, 0));
}

std::wstring Lister(HWND Liste) {
  std::wstring Sortie = L"OK";
  for (const auto& Une : Entrees(Liste)) Sortie += L'\x1E' + Proteger(Une);
  return Sortie;
}

std::wstring Mesurer_Programme() {
  const Consommation C = Mesurer(Programme.Processus());
  std::wstring Sortie = L"OK";
  for (const DWORD N : {C.Poignees, C.Gdi, C.Fenetres, C.User_Libres})
    Sortie += L'\t' + std::to_wstring(N);
  return Sortie;
}

std::wstring Envoyer_Message(const Champs& A) {
  const auto Resultat =
      Envoyer(Fenetre(A[1]), static_cast<UINT>(Nombre(A[2])), static_cast<WPARAM>(Nombre(A[3])),
              static_cast<LPARAM>(Nombre(A[4])));
  return Resultat ? Oui(std::to_wstring(*Resultat)) : L"NON";
}

std::wstring Poster_Message(const Champs& A) {
  return Oui_Si(PostMessageW(Fenetre(A[1]), static_cast<UINT>(Nombre(A[2])),
                             static_cast<WPARAM>(Nombre(A[3])), static_cast<LPARAM>(Nombre(A[4]))));
}

// The entry itself cannot be looked at: another process's menus are its own affair under Wine.
std::wstring Choisir_Menu(const Champs& A) {
  const HWND Cible = Fenetre(A[1]);
  return Oui_Si(IsWindowEnabled(Cible) &&
                PostMessageW(Cible, WM_COMMAND, static_cast<WPARAM>(Nombre(A[2])), 0));
}

std::wstring Fin() {
  const auto Code = Programme.Fin();
  return Code ? Oui(std::to_wstring(*Code)) : L"NON";
}

const std::map<std::wstring, std::function<std::wstring(const Champs&)>> Commandes = {
    {L"lancer", [](const Champs& A) { return Oui_Si(Programme.Lancer(A[2], A[1])); }},
    {L"fin", [](const Champs&) { return Fin(); }},
    {L"tuer", [](const Champs&) { return Programme.Tuer(), Oui(); }},
    {L"fenetres", [](const Champs&) { return Ecrire(Programme.Fenetres()); }},
    {L"enfants",
     [](const Champs& A) {
       return Ecrire(Enfants(Fenetre(A[1]), static_cast<int>(Nombre(A[2]))));
     }},
    {L"entrees", [](const Champs& A) { return Lister(Fenetre(A[1])); }},
    {L"cliquer", [](const Champs& A) { return Cliquer(Fenetre(A[1])); }},
    {L"menu", Choisir_Menu},
    {L"envoyer", Envoyer_Message},
    {L"poster", Poster_Message},
    {L"mesurer", [](const Champs&) { return Mesurer_Programme(); }},
    {L"presse-papiers", [](const Champs&) { return Oui(Proteger(Presse_Papiers())); }},
};

std::wstring Repondre(const Champs& Demande) try {
  const auto Trouvee = Commandes.find(Demande[0]);
  return Trouvee == Commandes.end() ? L"NON\tcommande inconnue" : Trouvee->second(Demande);
} catch (const std::exception&) {
  return L"NON\targuments";
}

}  // namespace

int wmain() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  for (std::string Ligne; std::getline(std::cin, Ligne);) {
    Champs Demande = Decouper(En_Utf16(Ligne));
    Demande.resize(std::max<std::size_t>(Demande.size(), 5));
    std::cout << En_Utf8(Repondre(Demande)) << '\n' << std::flush;
  }
  return 0;
}
