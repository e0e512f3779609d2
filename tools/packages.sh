# The Debian packages that the project needs; sourced by ./run and ./test.
build_packages=(g++ cmake ninja-build libsoci-dev libboost-dev libsqlite3-dev libpq-dev libicu-dev libcli11-dev
  nlohmann-json3-dev libcsv-dev libxlsxwriter-dev qt6-base-dev qt6-translations-l10n
  fonts-dejavu-core)
test_packages=(libgtest-dev postgresql clang-format clang-tidy poppler-utils xvfb xauth)
