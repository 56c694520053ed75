# What the commands share. Sourced, with the repository's root as $root.

# Everything that building, testing and showing the program takes, from Debian.
packages=(
  cmake ninja-build g++ clang clang-format clang-tidy clazy ccache
  qt6-base-dev qt6-base-dev-tools qt6-serialport-dev libcli11-dev libgtest-dev libgmock-dev
  libgl-dev libvulkan-dev
  xvfb openbox xdotool x11-utils imagemagick fonts-dejavu-core
  dbus at-spi2-core python3 python3-gi gir1.2-atspi-2.0 pandoc
)

# Compiling again what was compiled before costs next to nothing.
export CMAKE_CXX_COMPILER_LAUNCHER=ccache

install_packages() {
  local missing=() package
  for package in "${packages[@]}"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "Installing ${missing[*]}"
  local become=()
  [ "$(id -u)" -eq 0 ] || become=(sudo)
  "${become[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${become[@]}" apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
}

# Configures and builds a preset.
build() {
  cmake --preset "$1" >"$root/build/$1.configure.log" 2>&1 || {
    cat "$root/build/$1.configure.log"
    return 1
  }
  cmake --build --preset "$1"
}
