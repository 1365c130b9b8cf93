#include "Platform/URLHost.hpp"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace Rellinor::Tests {

namespace {

TEST(URLHostTest, findsTheHost) {
    for (const std::string_view url : {"http://sn",
                                       "https://sn/x",
                                       "http://sn?q",
                                       "http://sn#f",
                                       "HTTP://sn",
                                       "http://sn:80/x",
                                       "http://sn:",
                                       "http://user@sn/",
                                       "http://user:pass@sn:80/x?y#z",
                                       "http://@sn",
                                       "//sn",
                                       "//sn/path",
                                       "file://sn/x",
                                       "http://%73n/",
                                       "http://s%6E",
                                       "http://%73%6e",
                                       "sn://sn",
                                       "a+b-c.d://sn",
                                       "http://sn//sn",
                                       "http://sn/%20",
                                       "http://sn?",
                                       "http://sn/?@"}) {
        EXPECT_TRUE(hasHost(url, "sn")) << url;
    }
}

TEST(URLHostTest, takesNoOtherHostForIt) {
    for (const std::string_view url :
         {"http://SN", "http://Sn", "http://sn.", "http://www.sn", "http://snx", "http://xsn",
          "http://sn.com", "http://sn@host", "http://sn:80@host", "http://%53n", "http://s",
          "http://[::1]/sn", "http://1.2.3.4/sn", "http://%2573n", "http://host/sn",
          "http://host?//sn", "http://host#//sn"}) {
        EXPECT_FALSE(hasHost(url, "sn")) << url;
    }
}

TEST(URLHostTest, findsNoHostWhereThereIsNone) {
    for (const std::string_view url :
         {"sn", "/sn", "sn:", "sn:sn", "mailto:sn", "http:///sn", "http://", "//", "http:sn",
          "http:/sn", "a/b//sn", "?//sn"}) {
        EXPECT_FALSE(hasHost(url, "sn")) << url;
    }
}

TEST(URLHostTest, doesNotParseWhatIsNoURL) {
    for (const std::string_view text : {"",
                                        " http://sn",
                                        "http://sn ",
                                        "http://sn/a b",
                                        "http://sn/é",
                                        "http://sn/%zz",
                                        "http://sn/%2",
                                        "http://sn/%",
                                        "http://sn\n",
                                        "\thttp://sn",
                                        "http://sn/\"",
                                        "http://sn/<",
                                        "http://sn/>",
                                        "http://sn/\\",
                                        "http://sn/^",
                                        "http://sn/`",
                                        "http://sn/{",
                                        "http://sn/|",
                                        "http://sn/}",
                                        "http://sn/[x]",
                                        "http://sn/?a[]=1",
                                        "http://sn/#a#b",
                                        "http://sn##",
                                        "1http://sn",
                                        "ht tp://sn",
                                        "://sn",
                                        "http://us er@sn",
                                        "http://%zz@sn/",
                                        "http://sn:port/",
                                        "http://sn:80x",
                                        "http://sn:80:90/",
                                        "http://sn\x7F/"}) {
        EXPECT_FALSE(hasHost(text, "sn")) << text;
    }
    EXPECT_FALSE(hasHost(std::string_view("http://sn\0", 10), "sn"));
    EXPECT_FALSE(hasHost(std::string_view("http://sn/\x01", 11), "sn"));
}

TEST(URLHostTest, readsAnyLength) {
    EXPECT_TRUE(hasHost("http://sn/" + std::string(1'000'000, 'a'), "sn"));
    EXPECT_FALSE(hasHost("http://" + std::string(1'000'000, 'a') + "sn", "sn"));
}

} // namespace

} // namespace Rellinor::Tests
