@echo off
rem assistenza.cmd [CARTELLA]: writes the bundle for support into the folder, or beside the program.
title Dati per l'assistenza
set "cartella=%~1"
if not defined cartella set "cartella=%~dp0"
pushd "%cartella%"
if errorlevel 1 goto fallito
"%~dp0orvenza-lab.exe" bundle
if errorlevel 1 goto fallito
echo.
echo Il file da mandare all'assistenza e' qui: "%cartella%"
goto fine
:fallito
echo.
echo I dati non sono completi. Si chiama chi segue l'impianto.
:fine
pause
