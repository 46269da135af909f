#!/usr/bin/env bash
# alone.sh PACKAGE: installs one of the Debian packages, with zvm where it is a part of that, in a root which
# has what these depend on and nothing else, and lets it do there what it is for.
# alone.sh within ROOT COMMAND...: runs a command there, in the tree of that root. It takes root's rights, or
# those that a user has in a namespace.
set -euo pipefail

readonly made=build/package
readonly packages=$made/packages
readonly documents=/usr/share/doc/zvm
# What some must do without, by its files.
readonly qt='libQt6*' gdal='libgdal*' printing='libQt6PrintSupport*'

fail() {
  echo "$*" >&2
  exit 1
}

# Devices and processes are those of the machine, and of its folder for passing things the display.
# shellcheck disable=SC2016 # for the shell within
readonly enter='for folder in proc dev tmp; do mount --rbind "/$folder" "$0/$folder" || exit; done
  exec chroot "$0" "$@"'
within() {
  local options=(--mount)
  [ "$(id -u)" -eq 0 ] || options+=(--map-root-user)
  exec env -i HOME=/home XDG_RUNTIME_DIR=/home LC_ALL=C.UTF-8 PATH=/usr/bin:/bin:/usr/sbin \
    ${DISPLAY:+"DISPLAY=$DISPLAY"} ${XAUTHORITY:+"XAUTHORITY=$XAUTHORITY"} \
    unshare "${options[@]}" bash -c "$enter" "$@"
}

# deb PACKAGE
deb() {
  compgen -G "$packages/$1_*.deb"
}

# beneath PACKAGE...: what they depend on, what that depends on, and so on. Of what stands for another only
# what is installed counts.
beneath() {
  local package names
  names=$(for package; do dpkg-deb -f "$(deb "$package")" Depends; done |
    tr ',' '\n' | sed -E 's/^ *([^ |]+).*/\1/' | grep -vxF "$(printf '%s\n' "$@")" | sort -u)
  # shellcheck disable=SC2016,SC2086 # for dpkg; a list of words
  apt-cache depends --recurse --installed --no-recommends --no-suggests --no-conflicts --no-breaks \
    --no-replaces --no-enhances $names | grep '^[a-z]' |
    { xargs dpkg-query -W -f='${db:Status-Status} ${binary:Package}\n' 2>/dev/null || true; } |
    sed -n 's/^installed //p' | sort -u
}

# furnish PACKAGE...: the root with their files and the words of dpkg about them, without their scripts. A
# library that is chosen among several is found by a link that these would make.
furnish() {
  mkdir -p "$root"/{proc,dev,tmp,home,usr/{bin,lib,lib64,sbin},var/log,var/lib/dpkg/{info,updates}}
  ln -s usr/bin usr/lib usr/lib64 usr/sbin "$root"
  chmod 700 "$root/home"
  dpkg-query -s "$@" >"$root/var/lib/dpkg/status"
  local package
  for package; do cp "/var/lib/dpkg/info/$package.list" "$root/var/lib/dpkg/info"; done
  { dpkg-query -L "$@" && find /usr/lib -lname '/etc/alternatives/*' && find /etc/alternatives -name 'lib*'; } |
    grep '^/[^.]' | sort -u | tar --create --no-recursion --files-from=- 2>/dev/null |
    tar --extract --keep-directory-symlink --directory="$root"
}

# install PACKAGE...
install() {
  local names files=() package
  names=$(beneath "$@")
  # shellcheck disable=SC2086 # a list of words
  furnish $names
  for package; do files+=("$(deb "$package")"); done
  fakeroot dpkg --root="$root" --force-not-root -i "${files[@]}"
}

# lacks FILE...: no program and no library is there that has such a name.
lacks() {
  local name
  for name; do
    [ -z "$(find "$root/usr" -path "$root/usr/share" -prune -o -name "$name" -type f -print -quit)" ] ||
      fail "$name is there"
  done
}

zvm() {
  "$0" within "$root" /usr/bin/zvm "$@"
}

# refuses PACKAGE ARGUMENT...: zvm says what to install, and ends with 4.
refuses() {
  local code=0 text
  text=$(zvm "${@:2}" 2>&1) || code=$?
  if [ "$code" -ne 4 ] || ! grep -q "install the package $1" <<<"$text"; then
    fail "zvm ends with $code and says: $text"
  fi
}

# page NAME: the manual page is well formed, and what it names of this package is there.
page() {
  local file=$root/usr/share/man/man1/$1.1.gz path
  [ -z "$(MANROFFOPT=-ww MANWIDTH=80 man --warnings -l "$file" 2>&1 >/dev/null)" ] || fail "$1.1 is not well formed"
  for path in $(zcat "$file" | sed 's/\\-/-/g' | grep -oE '/usr/share/[a-z0-9./-]*[a-z0-9]'); do
    [ -e "$root$path" ] || fail "$1.1 names $path, which is not there"
  done
}

# Two points, 3 apart, of the values 1 and 3: one pair with half the square of 2.
readonly points=$'x,y,v\n0,0,1\n3,0,3\n'
readonly classes=(--var v --lag 100 --lags 1 --title Two)

# computed FILE
computed() {
  tr -d '\r' <"$root$1" | grep -qE '^ *3 +2 +1 *$' || fail "$(<"$root$1")"
}

try_zvm() {
  lacks "$qt" "$gdal" zevfit 'zvm-*'
  zvm compute /home/points.csv /home/points.zvm --x x --y y "${classes[@]}"
  computed /home/points.zvm
  refuses zvm-plot plot /home/points.zvm /home/plot.svg
  refuses zvm-ogr compute /home/points.gpkg /home/none.zvm "${classes[@]}"
  page zvm
  local shell=$root/usr/share/bash-completion/completions/zvm name
  bash -n "$shell"
  [ "$(zvm completion bash)" = "$(<"$shell")" ] || fail "bash completes by another text"
  [ "$(zvm completion zsh)" = "$(<"$root/usr/share/zsh/vendor-completions/_zvm")" ] ||
    fail "zsh completes by another text"
  # shellcheck disable=SC2016 # quotes of Markdown
  for name in $(grep -oE '`[a-z_-]+\.(zvm|csv|py)`' "$root$documents/examples/README.md" | tr -d '`'); do
    [ -s "$root$documents/examples/$name" ] || fail "There is no example $name"
  done
  zvm check "$documents/examples/meuse-fitted.zvm" >/dev/null
}

# elements FILE: how often each stands in a picture.
elements() {
  grep -oE '<[a-z]+' "$1" | sort | uniq -c
}

try_zvm-plot() {
  lacks "$gdal" "$printing" zevfit zvm-ogr
  local fitted=$documents/examples/meuse-fitted.zvm
  zvm plot "$fitted" /home/plot.svg --var "ln zinc" --dir "45;0"
  diff <(elements "$root/home/plot.svg") <(elements "$root$documents/pictures/zvm-direction.svg")
  zvm plot "$fitted" /home/plots.pdf --var "ln zinc"
  pdfinfo "$root/home/plots.pdf" | grep -qE '^Pages: +4$' || fail "Not four pages"
  zvm plot "$fitted" /home/plot.png --var "ln zinc" --overlay --size 96x96pt --dpi 72
  [ "$(identify -format '%m %wx%h' "$root/home/plot.png")" = "PNG 96x96" ] || fail "Not such a picture"
  refuses zvm-ogr compute /home/points.gpkg /home/none.zvm "${classes[@]}"
}

try_zvm-ogr() {
  lacks "$qt" zevfit zvm-plot
  zvm compute /home/points.gpkg /home/points.zvm "${classes[@]}"
  computed /home/points.zvm
  refuses zvm-plot plot /home/points.zvm /home/plot.svg
}

try_zevfit() {
  lacks "$gdal" zvm 'zvm-*'
  page zevfit
  [ -s "$root/usr/share/doc/zevfit/examples/meuse.zvm" ] || fail "There is no example"
  xvfb-run -a -s "-screen 0 1280x1024x24" packaging/start-check.sh "$root/usr/bin/zevfit" \
    "$root/home/.local/share/zevFIT" build/logs/package-alone.png "$0" within "$root" /usr/bin/zevfit
}

# What is installed with a package, by its name.
declare -rA together=([zevfit]=zevfit [zvm]=zvm [zvm-plot]="zvm zvm-plot" [zvm-ogr]="zvm zvm-ogr")

if [ "$1" = within ]; then within "${@:2}"; fi
root=$PWD/$made/roots/$1
rm -rf -- "$root"
# shellcheck disable=SC2086 # a list of words
install ${together[$1]}
printf %s "$points" >"$root/home/points.csv"
ogr2ogr -f GPKG "$root/home/points.gpkg" "$root/home/points.csv" -oo X_POSSIBLE_NAMES=x \
  -oo Y_POSSIBLE_NAMES=y -oo AUTODETECT_TYPE=YES -a_srs EPSG:28992
"try_$1"
rm -rf -- "$root"
