#!/usr/bin/env bash
# checks.sh CHECK ARGUMENT...: what is checked of the packages, run in the root of the tree; each
# function fails when something is wrong. Pictures of what is looked at go to the logs.
set -uo pipefail

readonly logs=build/logs
readonly made=build/package
readonly screen="-screen 0 1280x1024x24"

make_packages() {
  rm -rf -- "$made/packages"
  cpack --config "$made/CPackConfig.cmake"
}

readonly debian=(zevfit zvm zvm-plot zvm-ogr)

# The one file of a kind that make_packages has made: "_*.deb" with a package's name in front, or the
# archive.
made_package() {
  local files
  mapfile -t files < <(compgen -G "$made/packages/$1")
  [ ${#files[@]} -eq 1 ] && [ -f "${files[0]}" ] && readlink -f -- "${files[0]}"
}

# on_a_display COMMAND...
on_a_display() {
  xvfb-run -a -s "$screen" "$@"
}

# starts PROGRAM FOLDER NAME COMMAND...: start-check.sh, its picture under the name among the logs.
starts() {
  on_a_display packaging/start-check.sh "$1" "$2" "$logs/package-$3.png" "${@:4}"
}

# ---- What the Debian package holds, unpacked.

made_debs() {
  for package in "${debian[@]}"; do made_package "${package}_*.deb" || return; done
}

# All of them in one folder, and each in its own.
unpack_deb() {
  rm -rf -- "$made/unpacked" "$made/parted" && mkdir "$made/parted" || return
  for package in "${debian[@]}"; do
    dpkg-deb -x "$(made_package "${package}_*.deb")" "$made/unpacked" &&
      dpkg-deb -x "$(made_package "${package}_*.deb")" "$made/parted/$package" || return
  done
}

lintian_is_content() {
  made_debs | xargs lintian --display-info --fail-on error,warning
}

# The entry opens no file: so it may neither take one nor be offered for one.
menu_entry() {
  local entry=$made/unpacked/usr/share/applications/zevfit.desktop
  desktop-file-validate "$entry" || return
  ! grep -E '^MimeType=|^Exec=.*%' "$entry"
}

# A name of the network that the component could be called after belongs to whoever publishes it.
catalogue_entry() {
  appstreamcli validate --no-net --override=cid-desktopapp-is-not-rdns=info \
    "$made/unpacked/usr/share/metainfo/zevfit.metainfo.xml"
}

icons() {
  local hicolor=$made/unpacked/usr/share/icons/hicolor size
  for size in 16 22 24 32 48 64 128 256; do
    [ "$(identify -format '%m %wx%h' "$hicolor/${size}x$size/apps/zevfit.png")" = \
      "PNG ${size}x$size" ] || return
  done
  cmp "$hicolor/scalable/apps/zevfit.svg" platform/icons/app.svg
}

# depends PACKAGE ON...: on these and nothing else.
depends() {
  local list
  list=$(dpkg-deb -f "$(made_package "$1_*.deb")" Depends | tr ',' '\n' |
    sed -E 's/^ *([^ ]+).*/\1/' | LC_ALL=C sort | xargs) || return
  echo "$1: $list"
  [ "$list" = "${*:2}" ]
}

# Only what draws takes Qt, whose plug-in for SVG comes with its library, only what reads spatial sources
# GDAL, and the desktop program stands by itself.
dependencies() {
  depends zevfit libc6 libgcc-s1 libqt6core6 libqt6gui6 libqt6printsupport6 libqt6svg6 \
    libqt6widgets6 libstdc++6 &&
    depends zvm libc6 libgcc-s1 libstdc++6 &&
    depends zvm-plot libc6 libgcc-s1 libqt6core6 libqt6gui6 libqt6svg6 libstdc++6 zvm &&
    depends zvm-ogr libc6 libgcc-s1 libgdal32 libstdc++6 zvm
}

# Pages lead to pages of the same package.
links() {
  tests/lint/links.py "$made/parted/zevfit" "$made/parted/zvm"
}

# shown PAGE: the commands of the page in a copy of the installed examples.
shown() {
  local root=$PWD/$made/unpacked/usr
  python3 -B tests/zvm/peers/pages.py "$root/bin/zvm" "$root/share/doc/zvm/examples" \
    "$root/share/doc/zvm/$1.md"
}

# typed EXPECTED NAME TEXT: what the desktop takes a file of the name and the text for.
typed() {
  local file=$made/typed/$2 found
  printf '%b' "$3" >"$file"
  found=$(XDG_DATA_DIRS=$PWD/$made/unpacked/usr/share:/usr/share \
    gio info -a standard::content-type "$file" | sed -n 's/.*standard::content-type: //p')
  echo "$2: $found"
  [ "$found" = "$1" ]
}

file_type() {
  local type=text/x-zevfit-variogram
  update-mime-database "$made/unpacked/usr/share/mime" || return
  rm -rf -- "$made/typed" && mkdir "$made/typed" || return
  typed "$type" by-tag 'A title\nzevra\n 7 \n' &&
    typed "$type" with-models 'A title\r\nzevRA1\r\n 7 \r\n' &&
    typed "$type" in-capitals 'A title\r\nZEVLAG\r\n 7 \r\n' &&
    typed "$type" carriage-returns 'A title\rZevlag\r 7 \r' &&
    typed "$type" no-title '\nzevra\n 7 \n' &&
    typed "$type" by-name.zvm 'A title\nanother tag\n' &&
    typed "$type" BY-NAME.ZVM 'A title\nanother tag\n' &&
    typed text/plain other-tag 'A title\nzevr\n 7 \n' &&
    typed text/plain within-a-line 'A title\nthe tag zevra\n 7 \n' &&
    typed "$type" meuse "$(<examples/meuse.zvm)"
}

# The command runs, with its page and what the shells complete it by.
command_line() {
  local root=$made/unpacked/usr
  "$root/bin/zvm" info examples/meuse.zvm &&
    "$root/bin/zvm" check examples/meuse.zvm >/dev/null &&
    bash -n "$root/share/bash-completion/completions/zvm" &&
    grep -q '^#compdef zvm' "$root/share/zsh/vendor-completions/_zvm" &&
    MANROFFOPT=-ww man --warnings -l "$root/share/man/man1/zvm.1.gz" | grep -q 'zvm' || return
  # Its options are on its page.
  local verb option page
  page=$(zcat "$root/share/man/man1/zvm.1.gz" | sed 's/\\-/-/g')
  for verb in $("$root/bin/zvm" --help | awk '/^  [a-z]/ { print $1 }'); do
    for option in $("$root/bin/zvm" "$verb" --help | grep -oE '^  (-., ?)?--[a-z0-9-]+' |
      grep -oE -- '--[a-z0-9-]+'); do
      grep -qF -- "$option" <<<"$page" || {
        echo "zvm.1 does not tell of $verb $option"
        return 1
      }
    done
  done
}

# pictures_and_points ZVM: both programs beside it are found.
pictures_and_points() {
  local zvm=$1 folder=$PWD/$made/tried
  rm -rf -- "$folder" && mkdir "$folder" || return
  "$zvm" plot examples/meuse-fitted.zvm "$folder/plot.svg" --var 1 --overlay &&
    grep -q '<polyline' "$folder/plot.svg" &&
    echo '{"type":"FeatureCollection","features":[
      {"type":"Feature","properties":{"v":1},"geometry":{"type":"Point","coordinates":[3,0]}},
      {"type":"Feature","properties":{"v":3},"geometry":{"type":"Point","coordinates":[3.001,0]}}]}' \
      >"$folder/points.geojson" &&
    "$zvm" compute "$folder/points.geojson" "$folder/points.zvm" --var v --lag 100 --lags 2 \
      --projected EPSG:32631
}

# ---- In a root of its own, which knows what the machine has: the dependencies are met or it fails.

into_scratch_root() {
  local root=$PWD/$made/root
  rm -rf -- "$root" && mkdir -p "$root"/var/{log,lib/dpkg/{info,updates}} &&
    cp /var/lib/dpkg/status "$root/var/lib/dpkg" &&
    cp /var/lib/dpkg/info/*.list "$root/var/lib/dpkg/info" || return
  local files
  mapfile -t files < <(made_debs)
  scratch_dpkg -i "${files[@]}" || return
  XDG_DATA_DIRS=$root/usr/share:/usr/share PATH=$root/usr/bin:$PATH \
    starts "$root/usr/bin/zevfit" "$root/usr/bin" scratch-root \
    gio launch "$root/usr/share/applications/zevfit.desktop" || return
  scratch_dpkg --purge "${debian[@]}" && no_trace "$root"
}

scratch_dpkg() {
  fakeroot dpkg --root="$PWD/$made/root" --force-not-root "$@"
}

# no_trace ROOT
no_trace() {
  local left
  left=$(find "$1"/{usr,etc,opt,var/lib/dpkg/info} \( -iname '*zevfit*' -o -name '*zvm*' \) 2>/dev/null)
  [ -z "$left" ] || {
    echo "Left behind: $left"
    return 1
  }
}

# ---- On the machine itself, which takes root.

installed() {
  dpkg-query -W -f='${db:Status-Status}\n' "${debian[@]}" 2>/dev/null | grep -qx installed
}

with_apt() {
  env DEBIAN_FRONTEND=noninteractive apt-get -qq -y -o DPkg::Lock::Timeout=300 "$@"
}

# A user who may not write to the program's folder starts it from the menu, and root does.
onto_this_machine() {
  ! installed || {
    echo "zevfit is installed on this machine and stays so; remove it to have this checked"
    return 1
  }
  local home code files
  mapfile -t files < <(made_debs)
  home=$(mktemp -d) && with_apt install --no-install-recommends "${files[@]}"
  code=$?
  [ "$code" -ne 0 ] || {
    pictures_and_points zvm && started_by_user "$home/user" && started_by_root "$home/root" && known_to_the_desktop "$home"
    code=$?
  }
  with_apt purge "${debian[@]}" && no_trace "" || code=1
  rm -rf -- "$home"
  return "$code"
}

readonly menu_start=(gio launch /usr/share/applications/zevfit.desktop)

# on_a_display_of_nobody HOME COMMAND...
on_a_display_of_nobody() {
  setpriv --reuid=nobody --regid=nogroup --clear-groups \
    env -u XDG_DATA_HOME -u XDG_RUNTIME_DIR HOME="$1" TMPDIR="$1" \
    xvfb-run -a -s "$screen" "${@:2}"
}

started_by_user() {
  install -d -m 700 -o nobody -g nogroup "$1" && chmod 711 "${1%/*}" &&
    install -m 755 packaging/start-check.sh "$1" &&
    (
      cd "$1" && on_a_display_of_nobody "$1" ./start-check.sh /usr/bin/zevfit \
        "$1/.local/share/zevFIT" "$1/picture.png" "${menu_start[@]}"
    ) &&
    cp "$1/picture.png" "$logs/package-installed.png"
}

started_by_root() {
  XDG_DATA_HOME=$1 starts /usr/bin/zevfit "$1/zevFIT" installed-root "${menu_start[@]}"
}

# The databases of the desktop have taken it up without being told.
known_to_the_desktop() {
  cp examples/meuse.zvm "$1/meuse" &&
    gio info -a standard::content-type "$1/meuse" | grep text/x-zevfit-variogram &&
    man -w zevfit && man -w zvm
}

# ---- The archive, in two folders.

# unpacked_archive FOLDER NAME: the program keeps its files there, and none in the user's own folder.
unpacked_archive() {
  local folder=$PWD/$made/$1 data=$PWD/$made/no-data
  rm -rf -- "$folder" "$data" && mkdir -p "$folder" "$data" &&
    tar -xzf "$(made_package "*.tar.gz")" -C "$folder" --strip-components=1 &&
    XDG_DATA_HOME=$data starts "$folder/zevfit" "$folder" "$2" "$folder/zevfit" &&
    "$folder/zvm" info "$folder/examples/meuse.zvm" &&
    pictures_and_points "$folder/zvm" &&
    bash -n "$folder/completions/zvm.bash" && [ -f "$folder/completions/_zvm" ] &&
    [ -f "$folder/zvm.1" ] && tests/lint/links.py "$folder" &&
    [ ! -e "$data/zevFIT" ]
}

mkdir -p "$logs"
"$@"
