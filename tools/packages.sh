# The Debian 12 packages required by the build and its tests; installs the missing ones. Chooses the preset. Sourced by
# run, test, package and bench.

packages=(
  build-essential cmake ninja-build ccache git ca-certificates
  nlohmann-json3-dev libcli11-dev libtomlplusplus-dev
  libsqlite3-dev unixodbc-dev tdsodbc
  qt6-base-dev qt6-svg-dev qt6-translations-l10n libxlsxwriter-dev libzip-dev libssl-dev libexpat1-dev libutf8proc-dev
  fonts-dejavu-core
  libpoppler-qt6-dev pkg-config
)
test_packages=(
  libgtest-dev libgmock-dev python3 clang-tidy postgresql odbc-postgresql poppler-utils cppcheck qpdf
  default-jre-headless libpdfbox2-java libactivation-java libjaxb-api-java
  zsh man-db desktop-file-utils appstream shared-mime-info libglib2.0-bin
)
fuzz_packages=(clang libclang-rt-14-dev)
coverage_packages=(gcovr)
format_packages=(clang-format)
deb_packages=(dpkg-dev file)
guide_packages=(xvfb xdotool at-spi2-core dbus-daemon python3-gi gir1.2-atspi-2.0 python3-pil)

# install_missing PACKAGE...: as root, or through sudo.
install_missing() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "These packages are missing and neither root nor sudo is at hand: ${missing[*]}" >&2
      return 1
    }
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
    >/dev/null
}

# The preset to build with: an existing build/release is kept up to date; in a fresh clone everything is built once.
built_preset() {
  if [ -e build/release/CMakeCache.txt ]; then echo release; else echo run; fi
}
