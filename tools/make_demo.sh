#!/usr/bin/env bash
# make_demo.sh APP DEMO: an application directory of its own in DEMO, with the programs of APP, set up on a
# generated media library in DEMO/media. What is there already is kept.
set -euo pipefail
app="$1"
demo="$2"
here="$(dirname "$(readlink -f "$0")")"
vkini="$here/../build/release/tools/vkini"

mkdir -p "$demo/skins"
cp -u "$app/velkorandum" "$app/libvkfilm.so" "$app/winamp" "$app/DB_UPDATE" "$app/tags_empty.mdb" "$demo/"
cp -u "$app/visuals" "$app/VNFO.dat" "$app/RESET.bat" "$demo/"
cp -ru "$app/skins/." "$demo/skins/"
cp -ru "$app/plugins" "$demo/"
cp -ru "$app/COMMON" "$demo/"
# Both tuners are simulated: the FM radio's library, and the satellite receiver as a program of its own.
sims="$here/../build/release/tests/sim"
cp -u "$sims/libvkradio_sim.so" "$demo/libvkradio.so"
cp -u "$sims/xm_receiver" "$demo/"
python3 "$here/make_demo_library.py" "$demo/media"
# A town to drive through; the map is made where its maker may leave temporary files.
if [ ! -f "$demo/map.bin" ]; then
    python3 "$here/make_demo_town.py" "$demo/town"
    (cd "$demo/town" && maptool -U -i town.osm new.bin && mv new.bin ../map.bin)
fi

[ -f "$demo/settings.ini" ] && exit 0
new="$demo/settings.ini.new"
"$vkini" make "$new"
set_key() { "$vkini" set "$new" "$@"; }
set_key main MediaDir "$demo/media"
set_key main PlayListDir "$demo/media/Playlists"
set_key main CurrentSkin Torque.skn
set_key main CurrentDTSkin Torque.skn
set_key main CurrentNTSkin TorqueNight.skn
set_key main ExtendedTags true
set_key main ListSpacing 1
set_key audio_player AudioExtensions MP3:MP2:MP1:CDA:WAV:VOC:AU:SND:AIF:AIFF:FLAC:OGG:M4A:AAC:OPUS:OGA:WMA:WV:APE:MPC:M4B
set_key video_player VideoExtensions MPG:AVI:MPEG:DIVX:MKV:MP4:M4V:MOV:WMV:WEBM:TS:VOB
set_key GPS GPSModule 1
set_key GPS receiver "log:$demo/town/drive.nmea"
set_key main Setup true
mv "$new" "$demo/settings.ini"
