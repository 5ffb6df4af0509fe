// Zipped descriptions: a zip archive holding one XML file loads like the XML
// itself, from memory and from a file, and a broken archive is refused.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include <GenICam.h>

using namespace GenApi;

namespace {

// Zips a device description with the interpreter's own zipfile module, so the
// archive does not come from the code under test.
std::string ZipOf(const std::string& xmlPath, const std::string& zipPath) {
  const std::string cmd = "python3 -c \"import zipfile,sys; z=zipfile.ZipFile(sys.argv[2],'w',zipfile.ZIP_DEFLATED); "
                          "z.write(sys.argv[1],'description.xml'); z.close()\" '" +
                          xmlPath + "' '" + zipPath + "' 2>&1";
  if (std::system(cmd.c_str()) != 0) return std::string();
  std::ifstream f(zipPath, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
}

TEST(ZippedDescription, LoadsFromMemoryAndFileLikeTheXml) {
  const std::string xml = std::string(VY_SHARED_DIR) + "/genicam/devices/basler-aca640-300gm-gige.xml";
  const std::string zip = testing::TempDir() + "vy_description.zip";
  const std::string bytes = ZipOf(xml, zip);
  if (bytes.empty()) GTEST_SKIP() << "python3 with zipfile is not available";
  ASSERT_EQ(bytes.substr(0, 2), "PK");

  CNodeMapFactory plain(ContentType_Xml, gcstring(xml.c_str()));
  INodeMap* pPlain = plain.CreateNodeMap();
  CNodeMapFactory fromMemory(ContentType_ZippedXml, bytes.data(), bytes.size());
  INodeMap* pMemory = fromMemory.CreateNodeMap();
  CNodeMapRef fromFile;
  fromFile._LoadXMLFromZIPFile(zip.c_str());
  EXPECT_EQ(pMemory->GetNumNodes(), pPlain->GetNumNodes());
  EXPECT_EQ(fromFile._GetNumNodes(), pPlain->GetNumNodes());
  EXPECT_NE(fromFile._GetNode("Width"), nullptr);
  // The content type may also be left to the data's signature.
  CNodeMapFactory automatic(ContentType_Auto, bytes.data(), bytes.size());
  INodeMap* pAuto = automatic.CreateNodeMap();
  EXPECT_EQ(pAuto->GetNumNodes(), pPlain->GetNumNodes());
  for (INodeMap* p : {pPlain, pMemory, pAuto}) dynamic_cast<IDestroy*>(p)->Destroy();
  std::remove(zip.c_str());

  const std::string broken = bytes.substr(0, bytes.size() / 2);
  EXPECT_THROW(CNodeMapFactory(ContentType_ZippedXml, broken.data(), broken.size()), GenICam::RuntimeException);
}

}  // namespace
