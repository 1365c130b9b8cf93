#include <filesystem>
#include <string>

#include <Rellinor/URL.hpp>
#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

TEST(URLTest, percentEncodesAllButWhatAPathMayHold) {
    EXPECT_EQ(URL::fileURLWithPath("/Users/ann/a b;é.csv").absoluteString(),
              "file:///Users/ann/a%20b%3B%C3%A9.csv");
}

TEST(URLTest, keepsWhatAPathMayHold) {
    const std::string path = "/azAZ09!$&'()*+,-./:=@_~";
    EXPECT_EQ(URL::fileURLWithPath(path).absoluteString(), "file://" + path);
}

TEST(URLTest, percentEncodesEveryOtherByte) {
    EXPECT_EQ(URL::fileURLWithPath("/\x01 \"#%;<>?[\\]^`{|}\x7F\xFF").absoluteString(),
              "file:///%01%20%22%23%25%3B%3C%3E%3F%5B%5C%5D%5E%60%7B%7C%7D%7F%FF");
}

TEST(URLTest, givesThePathBack) {
    EXPECT_EQ(URL::fileURLWithPath("/Users/ann/a b;é%20.csv").path(), "/Users/ann/a b;é%20.csv");
}

TEST(URLTest, givesThePathWithoutItsTrailingSlash) {
    EXPECT_EQ(URL::fileURLWithPath("/Users/ann/").path(), "/Users/ann");
    EXPECT_EQ(URL::fileURLWithPath("/Users/ann/").absoluteString(), "file:///Users/ann/");
    EXPECT_EQ(URL::fileURLWithPath("/").path(), "/");
    EXPECT_EQ(URL::fileURLWithPath("//").path(), "/");
    EXPECT_EQ(URL::fileURLWithPath("/").absoluteString(), "file:///");
}

TEST(URLTest, appendsAPathComponent) {
    EXPECT_EQ(URL::fileURLWithPath("/Users/ann").appendingPathComponent("a b").path(),
              "/Users/ann/a b");
    EXPECT_EQ(URL::fileURLWithPath("/Users/ann/").appendingPathComponent("a").path(),
              "/Users/ann/a");
    EXPECT_EQ(URL::fileURLWithPath("/").appendingPathComponent("a").path(), "/a");
    EXPECT_EQ(URL::fileURLWithPath("/Users").appendingPathComponent("a/b/").absoluteString(),
              "file:///Users/a/b/");
}

TEST(URLTest, appendsAPathExtension) {
    EXPECT_EQ(URL::fileURLWithPath("/Users/logins").appendingPathExtension("json").path(),
              "/Users/logins.json");
    EXPECT_EQ(URL::fileURLWithPath("/Users/a.b").appendingPathExtension("c").path(),
              "/Users/a.b.c");
    EXPECT_EQ(URL::fileURLWithPath("/Users/ann/").appendingPathExtension("x").absoluteString(),
              "file:///Users/ann.x/");
}

TEST(URLTest, takesARelativePathFromTheCurrentFolder) {
    const std::string folder = std::filesystem::current_path();
    EXPECT_EQ(URL::fileURLWithPath("export.csv").path(), folder + "/export.csv");
    EXPECT_EQ(URL::fileURLWithPath("./a/../b").path(), folder + "/./a/../b");
    EXPECT_EQ(URL::fileURLWithPath("").path(), folder);
}

} // namespace

} // namespace Rellinor::Tests
