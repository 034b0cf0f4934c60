#pragma once

#include <string>

#include "controls/form.h"
#include "data/database.h"
#include "host/filesystem.h"
#include "host/session.h"

namespace cu {

class UtilitaSuite;

// The notice at the end of a run: the file's name, a link that opens its folder, and the next steps.
class FrmMsgLink : public Form {
 public:
  FrmMsgLink(FrontEnd& frontEnd, UtilitaSuite& utilita, TestiSuite& testi, const FileSystem& files);

  void setConnection(cu::Connection* connection) { connection_ = connection; }
  cu::Connection* connection() const { return connection_; }  // valid for the lifetime of the form
  // Sets the text of lblUser, which contains the name.
  void setNomeFile(const std::string& nome);
  // Sets the folder; the first call loads the form.
  void setPath(const std::string& cartella);

  std::string guideChapter() const override { return "Il file è pronto"; }

  Label lblUser;
  Link lblLink;
  Label Label1;
  Frame Image1;
  Button Command1;

 private:
  void formLoad() override;
  void formUnload() override;

  UtilitaSuite& utilita_;
  TestiSuite& testi_;
  const FileSystem& files_;
  cu::Connection* connection_ = nullptr;
  int puntatore_ = 0;
};

}  // namespace cu
