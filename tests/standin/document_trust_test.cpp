// What documents name stays where it is: nothing comes from the network, no file outside a document's folder is opened or
// written, whatever the document says.
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <netdb.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

#include "standin/formats/webarchive/archive.hpp"
#include "standin/formats/zip.hpp"
#include "standin/foundation/number.hpp"
#include "tests/standin/file_wrapper_support.hpp"

namespace {
int connections = 0;
}

// In front of the C library's, for every library of the process.
extern "C" {
int socket(int, int, int) noexcept { return ++connections, errno = EACCES, -1; }
int connect(int, const sockaddr*, socklen_t) { return ++connections, errno = EACCES, -1; }
int getaddrinfo(const char*, const char*, const addrinfo*, addrinfo**) { return ++connections, EAI_FAIL; }
}

namespace {

using namespace file_wrapper_support;
namespace formats = standin::formats;
namespace fs = std::filesystem;

// The smallest picture.
std::string picture() { return std::string("GIF89a\1\0\1\0\x80\0\0\0\0\0\xFF\xFF\xFF,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 35); }

std::string packaged(std::initializer_list<formats::zip::Entry> entries) { return *formats::zip::write(entries); }

std::string docx(const std::string& target, const std::string& doctype = "", const std::string& text = "") {
  constexpr char office[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
  const auto relationships = [&](const std::string& rows) {
    return "<Relationships xmlns='http://schemas.openxmlformats.org/package/2006/relationships'>" + rows +
           "</Relationships>";
  };
  const auto relationship = [&](const std::string& kind, const std::string& to, const std::string& mode = "") {
    return "<Relationship Id='" + kind + "' Type='" + office + "/" + kind + "' Target='" + to + "'" + mode + "/>";
  };
  const std::string outside = " TargetMode='External'";
  return packaged(
      {{"[Content_Types].xml", "<Types xmlns='http://schemas.openxmlformats.org/package/2006/content-types'/>"},
       {"_rels/.rels", relationships(relationship("officeDocument", "word/document.xml"))},
       {"word/document.xml",
        doctype + "<w:document xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main' xmlns:r='" + office +
            "' xmlns:a='http://schemas.openxmlformats.org/drawingml/2006/main'><w:body><w:p><w:r><w:t>text" + text +
            "</w:t></w:r><w:r><w:drawing><a:blip r:link='image' r:embed='hyperlink'/></w:drawing></w:r></w:p></w:body>"
            "</w:document>"},
       {"word/_rels/document.xml.rels",
        relationships(relationship("image", target, outside) + relationship("hyperlink", target) +
                      relationship("attachedTemplate", target, outside) + relationship("styles", target))}});
}

std::string openDocument(const std::string& target, const std::string& doctype = "", const std::string& text = "") {
  return doctype +
         "<office:document xmlns:office='urn:oasis:names:tc:opendocument:xmlns:office:1.0' "
         "xmlns:text='urn:oasis:names:tc:opendocument:xmlns:text:1.0' xmlns:xlink='http://www.w3.org/1999/xlink' "
         "xmlns:draw='urn:oasis:names:tc:opendocument:xmlns:drawing:1.0' "
         "office:mimetype='application/vnd.oasis.opendocument.text'><office:body><office:text><text:p>text" +
         text + "<draw:frame><draw:image xlink:href='" + target +
         "'/></draw:frame></text:p></office:text></office:body></office:document>";
}

std::string odt(const std::string& target) {
  return packaged({{"mimetype", "application/vnd.oasis.opendocument.text", false}, {"content.xml", openDocument(target)}});
}

std::string wordML(const std::string& target, const std::string& doctype = "", const std::string& text = "") {
  return doctype +
         "<?mso-application progid='Word.Document'?><w:wordDocument "
         "xmlns:w='http://schemas.microsoft.com/office/word/2003/wordml' xmlns:v='urn:schemas-microsoft-com:vml'><w:body>"
         "<w:p><w:r><w:t>text" +
         text + "</w:t></w:r><w:r><w:pict><v:shape><v:imagedata src='" + target +
         "'/></v:shape></w:pict></w:r></w:p></w:body></w:wordDocument>";
}

std::string html(const std::string& target, const std::string& doctype = "<!DOCTYPE html>", const std::string& text = "") {
  return doctype + "<html><head><base href='" + target + "'><link rel=stylesheet href='" + target + "'><style>@import url(" +
         target + "); p { background: url(" + target + ") }</style><script src='" + target +
         "'></script></head><body><p>text" + text + "<img src='" + target + "'><iframe src='" + target +
         "'></iframe><object data='" + target + "'></object><video src='" + target + "'></video></body></html>";
}

// Without an address in front it lies at one beside the target.
std::string webArchive(const std::string& target) {
  return *formats::webarchive::serialize({{.url = target + ".html", .mimeType = "text/html", .contents = html(target)}, {}});
}

std::string rtf(const std::string& target) {
  return "{\\rtf1\\ansi{\\*\\template " + target + "}text{\\field{\\*\\fldinst INCLUDEPICTURE \"" + target +
         "\" \\\\d}{\\fldrslt}}{\\field{\\*\\fldinst INCLUDETEXT \"" + target + "\"}{\\fldrslt}}{{\\NeXTGraphic " + target +
         " \\width20 \\height20}\xAC}{\\object\\objlink{\\*\\objclass Word}{\\result}}}";
}

// A document of each format that names the target in every way it can.
std::vector<std::pair<std::string, std::string>> documentsNaming(const std::string& target) {
  return {{"html", html(target)},         {"rtf", rtf(target)}, {"docx", docx(target)},
          {"fodt", openDocument(target)}, {"odt", odt(target)}, {"webarchive", webArchive(target)},
          {"xml", wordML(target)}};
}

NSAttributedString* opened(const std::string& path) {
  return adopt(send<NSAttributedString*>(alloc<NSAttributedString>(), "initWithURL:options:documentAttributes:error:",
                                         url(path), static_cast<NSDictionary*>(nullptr),
                                         static_cast<NSDictionary**>(nullptr), static_cast<NSError**>(nullptr)))
      .autorelease();
}

std::string textOf(NSAttributedString* string) {
  return string != nullptr ? utf8(NSAttributedString::string(string)) : "(nil)";
}

// Whether somebody opened a file since the last time it was asked.
class Watch {
 public:
  explicit Watch(const fs::path& file) { inotify_add_watch(descriptor_, file.c_str(), IN_OPEN); }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() { ::close(descriptor_); }
  bool wasOpened() const {
    char events[4096];
    return ::read(descriptor_, events, sizeof events) > 0;
  }

 private:
  const int descriptor_ = inotify_init1(IN_NONBLOCK);
};

// A folder "documents", and beside it "secret.gif", to which the link "link.gif" in the folder leads.
class DocumentTrust : public testing::Test {
 protected:
  DocumentTrust() {
    scratch_.file("secret.gif", picture());
    fs::create_directory(folder());
    fs::create_symlink(secret(), folder() / "link.gif");
  }
  fs::path folder() const { return fs::path(scratch_.path()) / "documents"; }
  fs::path secret() const { return fs::path(scratch_.path()) / "secret.gif"; }

  // A file in the folder, and its path.
  std::string save(const std::string& name, const std::string& content) const {
    return scratch_.file("documents/" + name, content);
  }
  // What the text of the document is when it is read from a file in the folder.
  std::string read(const std::string& extension, const std::string& content) const {
    return textOf(opened(save("document." + extension, content)));
  }

 private:
  const AutoreleasePool pool_;
  const TemporaryFolder scratch_;
};

TEST_F(DocumentTrust, NothingIsFetchedFromTheNetwork) {
  for (const char* function : {"socket", "connect", "getaddrinfo"}) {
    ASSERT_NE(dlsym(RTLD_DEFAULT, function), dlsym(RTLD_NEXT, function)) << "libraries would not find ours";
  }
  connections = 0;
  for (const char* target : {"http://127.0.0.1:9/a.gif", "https://localhost/a.gif", "ftp://localhost/a.gif",
                             "//localhost/a.gif", "file://localhost.localdomain/a.gif"}) {
    for (const auto& [extension, content] : documentsNaming(target)) {
      EXPECT_NE(read(extension, content).find("text"), std::string::npos) << extension;
      EXPECT_EQ(connections, 0) << extension << " fetched " << target;
    }
  }
  const Owned<NSURL> page = retain(NSURL::URLWithString(classOf<NSURL>(), ns("http://127.0.0.1:9/page.html")));
  EXPECT_EQ(adopt(NSAttributedString::initWithURL(alloc<NSAttributedString>(), page, nullptr)), nullptr);
  EXPECT_EQ(connections, 0);
}

TEST_F(DocumentTrust, NoFileOutsideTheFolderIsOpened) {
  const Watch watch(secret());
  for (const std::string& target :
       {"file://" + secret().string(), secret().string(), std::string("../secret.gif"), std::string("%2e%2e/secret.gif"),
        std::string("link.gif"), "file://" + folder().string() + "/../secret.gif"}) {
    for (const auto& [extension, content] : documentsNaming(target)) {
      EXPECT_NE(read(extension, content).find("text"), std::string::npos) << extension;
      EXPECT_FALSE(watch.wasOpened()) << extension << " opened " << target;
    }
  }
}

TEST_F(DocumentTrust, PicturesInTheFolderAreFoundThroughTheDocumentsAddressAlone) {
  const std::string path = save("picture.gif", picture());
  const Watch watch(path);
  const std::string page = "<p>text<img src=picture.gif>";
  EXPECT_EQ(read("html", page), "text\uFFFC");
  EXPECT_TRUE(watch.wasOpened());
  const std::string absolute = "<p>text<img src='file://" + path + "'>";
  NSDictionary* options = newDictionary({{NSDocumentTypeDocumentOption, NSHTMLTextDocumentType}}).autorelease();
  const auto fromMemory = adopt(send<NSAttributedString*>(
      alloc<NSAttributedString>(), "initWithData:options:documentAttributes:error:", bytes(absolute), options,
      static_cast<NSDictionary**>(nullptr), static_cast<NSError**>(nullptr)));
  EXPECT_EQ(textOf(fromMemory).substr(0, 4), "text");
  EXPECT_FALSE(watch.wasOpened());
}

TEST_F(DocumentTrust, ExternalEntitiesAreNotOpened) {
  const std::string path = save("entity.txt", "secret");
  const Watch watch(path);
  for (const std::string& address : {"file://" + path, std::string("entity.txt")}) {
    const std::string doctype = "<!DOCTYPE d SYSTEM '" + address + "' [<!ENTITY e SYSTEM '" + address +
                                "'><!ENTITY % p SYSTEM '" + address + "'>%p;]>";
    const std::string list = "<?xml version='1.0'?>" + doctype +
                             "<plist version='1.0'><dict><key>WebMainResource</key><dict><key>WebResourceData</key><data>"
                             "dGV4dA==</data><key>WebResourceMIMEType</key><string>text/html</string>"
                             "<key>WebResourceURL</key><string>&e;</string></dict></dict></plist>";
    for (const auto& [extension, content] :
         std::vector<std::pair<std::string, std::string>>{{"docx", docx("a.gif", doctype, "&e;")},
                                                          {"fodt", openDocument("a.gif", doctype, "&e;")},
                                                          {"xml", wordML("a.gif", doctype, "&e;")},
                                                          {"html", html("a.gif", doctype, "&e;")},
                                                          {"webarchive", list}}) {
      EXPECT_EQ(read(extension, content).find("secret"), std::string::npos) << extension;
      EXPECT_FALSE(watch.wasOpened()) << extension;
    }
  }
}

TEST_F(DocumentTrust, PackagesLeadToNothingOutside) {
  const fs::path package = folder() / "package.rtfd";
  fs::create_directory(package);
  fs::create_symlink(secret(), package / "picture.gif");
  const Watch watch(secret());
  for (const char* target : {"../secret.gif", "../../secret.gif", "picture.gif"}) {
    save("package.rtfd/TXT.rtf", rtf(target));
    NSAttributedString* string = opened(package);
    EXPECT_EQ(textOf(string).substr(0, 4), "text");
    const fs::path copy = folder() / "copy.rtfd";
    EXPECT_TRUE(
        write(NSAttributedString::RTFDFileWrapperFromRange(string, {0, NSAttributedString::length(string)}, nullptr), copy));
    EXPECT_FALSE(watch.wasOpened()) << target;
    fs::remove_all(copy);
  }
  fs::remove(package / "TXT.rtf");
  fs::create_symlink(save("outside.rtf", "{\\rtf1 outside}"), package / "TXT.rtf");
  EXPECT_EQ(textOf(opened(package)), "(nil)");
}

}  // namespace
