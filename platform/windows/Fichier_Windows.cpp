#include "platform/windows/Fichier_Windows.h"

#include "platform/windows/Chemin_Windows.h"
#include "platform/windows/Texte_Windows.h"

Fichier_Windows::Fichier_Windows(std::string_view Chemin)
    : Chemin_(Chemin),
      Fichier_(Prendre_Poignee(CreateFileW(Chemin_Appel(Chemin).c_str(), GENERIC_READ,
                                           FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                           FILE_FLAG_SEQUENTIAL_SCAN, nullptr))) {
  if (!Fichier_) throw Erreur_Fichier(GetLastError(), Chemin);
}

void Fichier_Windows::Lire(std::span<std::uint8_t> Tampon) {
  while (!Tampon.empty()) {
    DWORD Obtenu = 0;
    if (!ReadFile(Fichier_.get(), Tampon.data(), static_cast<DWORD>(Tampon.size()), &Obtenu,
                  nullptr)) {
      throw Erreur_Fichier(GetLastError(), Chemin_);
    }
    if (Obtenu == 0) {
      throw Erreur(Numero_Erreur::Lecture_Apres_Fin,
                   "Lecture au-delà de la fin du fichier : " + Chemin_);
    }
    Tampon = Tampon.subspan(Obtenu);
  }
}
