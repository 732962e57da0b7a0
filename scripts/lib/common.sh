# Sourced by the scripts beside this folder. All of them work from the repository's root.
# shellcheck shell=bash
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

run_packages=(g++ cmake ninja-build libboost-dev libcli11-dev nlohmann-json3-dev
  tao-pegtl-dev libsqlite3-dev libpugixml-dev libcpp-httplib-dev libssl-dev libcrypt-dev pkgconf)
benchmark_libraries=(libbenchmark-dev)
# What 32-bit x86 needs besides.
multilib_packages=(g++-multilib libsqlite3-0:i386)
test_packages=("${run_packages[@]}" "${benchmark_libraries[@]}" googletest locales openssl
  sqlite3 jq python3 graphviz zsh)
bench_packages=("${run_packages[@]}" "${benchmark_libraries[@]}" python3)
# What the address and undefined-behaviour sanitizers are built with.
sanitizer_packages=(clang libclang-rt-dev)
fuzz_packages=("${run_packages[@]}" "${sanitizer_packages[@]}")
site_packages=("${run_packages[@]}" python3 chromium chromium-driver)
lint_packages=("${test_packages[@]}" "${fuzz_packages[@]}" clang-format clang-tidy
  cppcheck python3)
compare_packages=("${run_packages[@]}" python3 util-linux iproute2 pciutils usbutils procps dmidecode)
docs_packages=("${run_packages[@]}" doxygen mandoc)
slots_packages=(g++ libboost-dev)
abi_packages=("${run_packages[@]}" "${multilib_packages[@]}" abigail-tools)
memcheck_packages=("${test_packages[@]}" valgrind)
package_packages=("${run_packages[@]}" doxygen dpkg-dev file pkgconf clang)

fail() {
  echo "$(basename "$0"): $*" >&2
  exit 1
}

# installed PACKAGE[:ARCHITECTURE]: without one in that of this machine.
installed() {
  local architecture=${1#*:}
  [[ $1 == *:* ]] || architecture=$(dpkg --print-architecture)
  dpkg-query -W -f '${db:Status-Status} ${Architecture}\n' "$1" 2>/dev/null |
    grep -qxE "installed ($architecture|all)"
}

# need PACKAGE...: installs those that are missing; prints nothing when none is.
need() {
  local package as_root=() missing=()
  for package; do
    installed "$package" || missing+=("$package")
  done
  ((${#missing[@]})) || return 0

  if ((EUID != 0)); then
    command -v sudo >/dev/null ||
      fail "neither root nor sudo: ask an administrator to install ${missing[*]}"
    as_root=(sudo)
  fi
  echo "Installing ${missing[*]}" >&2
  [[ ${missing[*]} != *:i386* ]] || "${as_root[@]}" dpkg --add-architecture i386
  # One unreachable source need not matter: whether the packages can be had is for install to say.
  "${as_root[@]}" apt-get -qq update </dev/null >&2 || true
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -y --no-install-recommends \
    install "${missing[@]}" </dev/null >&2 || fail "cannot install ${missing[*]}"
}

# block LANGUAGE FILE: what stands in the blocks of that language in a document.
block() {
  sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/{/^\`\`\`/!p}" "$2"
}

# The project's own C++ files that end in one of the given suffixes, NUL-separated.
own_files() {
  local suffix names=()
  for suffix; do
    names+=(-o -name "*$suffix")
  done
  (cd "$root" && find include src kit host examples tests fuzz soak bench -type f \( "${names[@]:1}" \) -print0 | sort -z)
}
