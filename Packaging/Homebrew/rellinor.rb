# A formula for macOS hosts, to be put into a tap.
#
# Nobody has run this formula: neither brew, nor a build on macOS. What was tried on Debian 12 is the
# build of both kinds of library with these options (the preset `package`), its installation, hosts that
# find it by pkg-config (Scripts/test-package), the sample import of `test`, and a build with Clang and
# libc++ (the preset `clang-libcxx`). The names of the formulae below were not tried either.
#
# To be filled in by the publisher of Rellinor: `homepage`, and either `url` with `sha256` (an archive of a
# release; `shasum -a 256 FILE` prints the sum) or `head` alone (the repository, for `brew install --HEAD`).
# Until then brew refuses the formula.
class Rellinor < Formula
  desc "Imports logins, notes and cards that other password managers hold"
  # homepage ""
  # url ""
  # sha256 ""
  # head "", branch: "main"
  license "MIT"

  depends_on "cli11" => :build
  depends_on "cmake" => :build
  depends_on "boost"
  depends_on "libsodium"
  depends_on "pkgconf" # the CMake package asks it for libsodium and utf8proc
  depends_on "utf8proc"

  uses_from_macos "expat"
  uses_from_macos "sqlite", since: :big_sur
  uses_from_macos "zlib"

  def install
    args = %w[
      -DBUILD_SHARED_LIBS=ON
      -DRELLINOR_BUILD_BOTH=ON
      -DRELLINOR_EXAMPLES=OFF
    ]
    system "cmake", "-S", ".", "-B", "build", *args, *std_cmake_args
    system "cmake", "--build", "build"
    system "cmake", "--install", "build"
    pkgshare.install "Examples/Exports/LastPass/export.csv"
  end

  test do
    counted = shell_output("#{bin}/rellinor import --source lastPass #{pkgshare}/export.csv")
    assert_match "12 passwords, 4 notes, 0 cards", counted

    (testpath/"host.cpp").write <<~CPP
      #include <Rellinor/Rellinor.hpp>

      int main() {
          Rellinor::RecordsImporter importer;
          int status = 1;
          importer.records(Rellinor::URL::fileURLWithPath("#{pkgshare}/export.csv"),
                           Rellinor::ImportSource::lastPass,
                           [&](const Rellinor::RecordsResult& result) {
                               status = result && result->notes.size() == 4 ? 0 : 1;
                           });
          return status;
      }
    CPP
    flags = shell_output("pkgconf --cflags --libs rellinor").chomp.split
    system ENV.cxx, "-std=c++23", "host.cpp", "-o", "host", *flags
    system "./host"
  end
end
