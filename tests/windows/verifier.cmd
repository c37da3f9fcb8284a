@echo off
rem Runs the tests that lie beside it on this PC, and ends with "N passed, N failed".
rem   verifier.cmd [/direct] [FILTER]
rem /direct waits for no key. FILTER chooses among the tests of the windows and of the whole program, as
rem "Fenetres_Natives.*:Journal.*"; those of the Windows layer always run.
rem ASCII only: what a console's code page makes of other letters, up to losing its place in this file, is its own.
rem No "||", no nested loops, no block with a redirection: Wine's own cmd takes them otherwise.
setlocal
cd /d "%~dp0programmes"
if errorlevel 1 goto incomplet
if not exist bout_en_bout_test.exe goto incomplet
set "resultats=%~dp0resultats"
set "resultat=%resultats%\resultat.txt"
set "sortie=%resultats%\sortie.tmp"
set "liste=%resultats%\liste.tmp"
if exist "%resultats%" rd /s /q "%resultats%"
md "%resultats%" 2>nul
ver >"%resultat%" 2>nul
if not exist "%resultat%" goto protege
set "filtre=*"
if /i "%~1"=="/direct" (set "direct=oui" & shift)
if not "%~1"=="" set "filtre=%~1"
for /f "tokens=2 delims=:." %%P in ('chcp') do set "page=%%P"
chcp 65001 >nul
type ..\Lisez-moi.txt
chcp %page% >nul
if not defined direct pause
echo %date% %time% %PROCESSOR_ARCHITECTURE% %PROCESSOR_ARCHITEW6432%>>"%resultat%"
rem The program's own starts keep a journal each there.
set "PAVORIN_JOURNAUX=%resultats%\journaux"
set /a passes=0, echecs=0, sautes=0
call :serie plateforme_windows_test.exe *
call :serie fenetres_windows_test.exe "%filtre%"
call :serie bout_en_bout_test.exe "%filtre%"
del "%sortie%" "%liste%"
set "bilan=%passes% passed, %echecs% failed"
echo %sautes% sans objet sur ce PC>>"%resultat%"
echo %bilan%>>"%resultat%"
echo.
echo Termine. Envoyez le repertoire "resultats" et Treize-points.txt rempli.
echo %sautes% sans objet sur ce PC
echo %bilan%
if not defined direct pause
if %echecs% gtr 0 exit /b 1
exit /b 0

:incomplet
echo Decompressez d'abord toute l'archive, dans un repertoire du PC et non du reseau.
goto refus
:protege
echo Ce repertoire est protege : copiez-le ou vous pouvez ecrire, sur le Bureau par exemple.
:refus
echo 0 passed, 1 failed
if /i not "%~1"=="/direct" pause
exit /b 1

rem :serie PROGRAM FILTER. A series without any test is a failure. A line of several words names no test.
:serie
echo.
echo %1
set "GTEST_FILTER=%~2"
set /a avant=passes+echecs+sautes
.\%1 --gtest_list_tests >"%liste%"
for /f "usebackq tokens=1,2" %%T in ("%liste%") do if "%%U"=="" call :ligne %1 %%T
set /a apres=passes+echecs+sautes
if %avant%==%apres% (set /a echecs+=1 & echo   ECHEC  aucun test)
goto :eof

rem :ligne PROGRAM WORD. A suite's name ends with a dot, its tests follow. A process each: a crash fails one test alone.
:ligne
set "nom=%~2"
if "%nom:~-1%"=="." (set "suite=%nom%" & goto :eof)
set "GTEST_FILTER=%suite%%nom%"
.\%1 /port:COM3 "deux mots" >"%sortie%" 2>&1
set "code=%errorlevel%"
set "verdict=ECHEC "
%SystemRoot%\System32\find.exe "[  SKIPPED ]" <"%sortie%" >nul
if %code%%errorlevel%==00 set "verdict=SAUTE "
%SystemRoot%\System32\find.exe "[  PASSED  ] 1 test" <"%sortie%" >nul
if %code%%errorlevel%==00 set "verdict=OK    "
if "%verdict%"=="OK    " set /a passes+=1
if "%verdict%"=="SAUTE " set /a sautes+=1
if "%verdict%"=="ECHEC " set /a echecs+=1
if "%verdict%"=="ECHEC " type "%sortie%"
for /r %%F in (echec*.png) do move /y "%%F" "%resultats%\%suite:/=-%%nom:/=-%.png" >nul
echo   %verdict% %GTEST_FILTER%
echo %verdict% %GTEST_FILTER%>>"%resultat%"
type "%sortie%" >>"%resultat%"
goto :eof
