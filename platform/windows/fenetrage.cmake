piece(fenetrage_windows
  SOURCES
    Dessins.cpp
    Echelle.cpp
    Fabrique_Pairs.cpp
    Fenetrage_Windows.cpp
    Fenetre_Native.cpp
    Foyer.cpp
    Menu_Natif.cpp
    Messages_Fenetre.cpp
    Nom_Accessible.cpp
    Pair_Champ_Texte.cpp
    Pair_Natif.cpp
    Pairs_Boutons.cpp
    Pairs_Fixes.cpp
    Pairs_Listes.cpp
    Polices.cpp
    Toile.cpp
  UTILISE plateforme_windows controles)
target_link_libraries(fenetrage_windows PUBLIC comctl32 uxtheme gdi32 ole32 uuid)
target_compile_definitions(fenetrage_windows PRIVATE UNICODE)
