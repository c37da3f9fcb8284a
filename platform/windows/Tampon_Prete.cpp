#include "platform/windows/Tampon_Prete.h"

#include <algorithm>

#ifdef PAVORIN_PAGES_GARDEES
#include <windows.h>

#include <new>
#endif

#ifdef PAVORIN_PAGES_GARDEES

Tampon_Prete::Tampon_Prete(Octets& Origine, Fin Suite) : Origine_(Origine) {
  constexpr std::size_t Page = 4096;
  const std::size_t Taille = Origine.size() + static_cast<std::size_t>(Suite);
  const std::size_t Permis = (Taille + Page - 1) / Page * Page;
  Pages_ = VirtualAlloc(nullptr, Permis + Page, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (Pages_ == nullptr) throw std::bad_alloc();
  const auto Base = static_cast<std::uint8_t*>(Pages_);
  DWORD Ancienne = 0;
  VirtualProtect(Base + Permis, Page, PAGE_NOACCESS, &Ancienne);
  Debut_ = Base + Permis - Taille;
  std::copy(Origine.begin(), Origine.end(), Debut_);
}

Tampon_Prete::~Tampon_Prete() {
  std::copy_n(Debut_, Origine_.size(), Origine_.begin());
  VirtualFree(Pages_, 0, MEM_RELEASE);
}

#else

Tampon_Prete::Tampon_Prete(Octets& Origine, Fin Suite) : Origine_(Origine), Copie_(Origine) {
  Copie_.resize(Origine.size() + static_cast<std::size_t>(Suite));
  Debut_ = Copie_.data();
}

Tampon_Prete::~Tampon_Prete() {
  std::copy_n(Debut_, Origine_.size(), Origine_.begin());
}

#endif
