@echo off
title Controllo dell'impianto
"%~dp0orvenza-lab.exe" doctor
echo.
pause
