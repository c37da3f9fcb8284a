#include "galss/End_Process_Galls.h"

#include "platform/Liste_Processus.h"
#include "platform/Texte.h"

void Arret_Galss(Liste_Processus& Processus) {
  for (const auto& [Id, Nom] : Processus.Lister()) {
    if (Nom == "C:\\WINDOWS\\GALSVW32.EXE" || Egal_Sans_Casse(Nom, "GALSVW32.EXE")) {
      Processus.Terminer(Id);
    }
  }
}
