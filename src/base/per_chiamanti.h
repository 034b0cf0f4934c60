#pragma once

#include <cstdint>
#include <string>

// These members exist for callers outside the program alone: nothing in it uses them, but they keep their
// names. A class has its own by deriving from them; they read its state as friends.
namespace cu::per_chiamanti {

template <class Self>
class DiRecordset {
 public:
  int State() const { return self().IsOpen() ? 1 : 0; }
  const std::string& Filter() const { return self().filterText_; }

 private:
  const Self& self() const { return static_cast<const Self&>(*this); }
};

template <class Self>
class DiFileSeq {
 public:
  const std::string& FileName() const { return self().fileName_; }
  const std::string& FilePathName() const { return self().filePathName_; }
  std::int16_t FileNumber() const { return self().fileNumber_; }
  // Closes the file and shows it in the text viewer, without waiting.
  void ShowFile() {
    self().CloseFile();
    self().visore_.viewText(self().filePathName_);
  }

 private:
  const Self& self() const { return static_cast<const Self&>(*this); }
  Self& self() { return static_cast<Self&>(*this); }
};

template <class Self>
class DiCUFileSeq {
 public:
  const std::string& FileName() const { return self().file_.FileName(); }
  const std::string& FilePathName() const { return self().file_.FilePathName(); }
  // Records written so far.
  std::int32_t NumRecD() const { return self().numRecD_; }
  std::int32_t NumRecH() const { return self().numRecH_; }
  void ShowFile() { self().file_.ShowFile(); }

 private:
  const Self& self() const { return static_cast<const Self&>(*this); }
  Self& self() { return static_cast<Self&>(*this); }
};

template <class Self>
class DiCUEle {
 public:
  const std::string& FileName() const { return self().file_.FileName(); }
  const std::string& FilePathName() const { return self().file_.FilePathName(); }

 private:
  const Self& self() const { return static_cast<const Self&>(*this); }
};

// Of a collection of fields or records.
template <class Self>
class DiRaccolta {
 public:
  template <class Index>
  void Remove(const Index& index) {
    self().members_.remove(index);
  }
  void Clear() { self().members_.clear(); }

 private:
  Self& self() { return static_cast<Self&>(*this); }
};

class DiElaboraCompensi {
 public:
  void sbShowLog() {}
};

template <class Self>
class DiControlli {
 public:
  bool bErrori() const { return !self().mancanti().empty(); }

 private:
  const Self& self() const { return static_cast<const Self&>(*this); }
};

template <class Self>
class DiFrmMsgLink {
 public:
  auto* connection() const { return static_cast<const Self&>(*this).connection_; }
  // The wording of lblUser with the name in one sentence.
  void setNomeFile(const std::string& nome) {
    auto& form = static_cast<Self&>(*this);
    form.load();
    form.lblUser.setCaption("\r\nIl file generato, che si chiama " + nome +
                            ", è stato creato correttamente nel seguente percorso:");
  }
};

template <class Self>
class DiFrmWizard {
 public:
  // What frmOption was left with.
  bool bStampaInterlinea = false;
  bool bSaltoPagina = false;
  std::string sInterlinea;

  std::int16_t oggettoCorrente() const { return static_cast<const Self&>(*this).nOggettoCorrente; }
};

}  // namespace cu::per_chiamanti
