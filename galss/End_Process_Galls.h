#pragma once
// Ends the GALSS server, so that the next update finds a fresh one.

class Liste_Processus;

/// Terminates every process named "C:\WINDOWS\GALSVW32.EXE" exactly, as older systems report it, or
/// "GALSVW32.EXE" whatever its case, as today's do. Reports nothing.
void Arret_Galss(Liste_Processus& Processus);
