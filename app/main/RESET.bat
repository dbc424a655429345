:; cd "$(dirname "$0")" || exit 1; [ -w . ] || cd "${XDG_DATA_HOME:-$HOME/.local/share}/velkorandum" || exit 1; rm -fv settings.ini kb.ini keys.ini debug.log tags.mdb; exit
@echo off
rem Both a shell script and a batch file: the line above is a label to the one, the rest never reached by the other.
cd /d "%~dp0"
for %%f in (settings.ini kb.ini keys.ini debug.log tags.mdb) do if exist "%%f" del "%%f"
