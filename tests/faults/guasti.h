#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/error.h"
#include "data/database.h"
#include "host/settings.h"
#include "suite/file_system.h"

namespace cu::test {

// Counts a run's calls of its surroundings and makes one fail: the n-th, from 1, of the selected kind.
class Guasto {
 public:
  enum class Dove { Database, File, Impostazioni };

  explicit Guasto(Dove dove, int alla = 0) : dove_(dove), alla_(alla) {}

  bool scatta(Dove dove, std::string chiamata) {
    if (dove != dove_ || ++chiamate_ != alla_) return false;
    scattata_ = std::move(chiamata);
    return true;
  }
  int chiamate() const { return chiamate_; }
  const std::string& scattata() const { return scattata_; }  // the call that failed; empty while none has

 private:
  Dove dove_;
  int alla_;
  int chiamate_ = 0;
  std::string scattata_;
};

class ConnessioneGuasta : public Connection {
 public:
  ConnessioneGuasta(std::unique_ptr<Connection> vera, Guasto& guasto)
      : vera_(std::move(vera)), guasto_(guasto) {}
  std::int64_t Execute(std::string_view testo) override {
    prova(testo);
    return vera_->Execute(testo);
  }
  void Query(std::string_view testo, RowStore& righe) override {
    prova(testo);
    vera_->Query(testo, righe);
  }
  void BeginRead() override { vera_->BeginRead(); }
  void EndRead() noexcept override { vera_->EndRead(); }
  void BeginWrites() override { vera_->BeginWrites(); }
  void EndWrites() override { vera_->EndWrites(); }

 private:
  void prova(std::string_view testo) {
    if (!guasto_.scatta(Guasto::Dove::Database, std::string(testo))) return;
    throw DatabaseError(DatabaseErrorKind::Unavailable, 0, "", "Il database non risponde.");
  }
  std::unique_ptr<Connection> vera_;
  Guasto& guasto_;
};

class UscitaGuasta : public OutputFile {
 public:
  UscitaGuasta(std::unique_ptr<OutputFile> vera, Guasto& guasto) : vera_(std::move(vera)), guasto_(guasto) {}
  void write(std::string_view byte) override {
    if (guasto_.scatta(Guasto::Dove::File, "write")) throw FileError(kErrorDiskFull, "Il disco è pieno.");
    vera_->write(byte);
  }
  void close() override {
    if (guasto_.scatta(Guasto::Dove::File, "close")) throw FileError(kErrorDiskFull, "Il disco è pieno.");
    vera_->close();
  }

 private:
  std::unique_ptr<OutputFile> vera_;
  Guasto& guasto_;
};

class FileGuasti : public FileSystemPiattaforma {
 public:
  explicit FileGuasti(Guasto& guasto) : guasto_(guasto) {}
  std::unique_ptr<OutputFile> openForOutput(const std::string& percorso) override {
    prova("openForOutput", percorso);
    return std::make_unique<UscitaGuasta>(FileSystemPiattaforma::openForOutput(percorso), guasto_);
  }
  bool fileExists(const std::string& percorso) override {
    prova("fileExists", percorso);
    return FileSystemPiattaforma::fileExists(percorso);
  }
  bool folderExists(const std::string& percorso) override {
    prova("folderExists", percorso);
    return FileSystemPiattaforma::folderExists(percorso);
  }
  void createFolder(const std::string& percorso) override {
    prova("createFolder", percorso);
    FileSystemPiattaforma::createFolder(percorso);
  }
  void copy(const std::string& da, const std::string& a) override {
    prova("copy", a);
    FileSystemPiattaforma::copy(da, a);
  }
  void replace(const std::string& percorso, std::string_view contenuto) override {
    prova("replace", percorso);
    FileSystemPiattaforma::replace(percorso, contenuto);
  }
  std::string readAll(const std::string& percorso) override {
    prova("readAll", percorso);
    return FileSystemPiattaforma::readAll(percorso);
  }
  void remove(const std::string& percorso) override {
    prova("remove", percorso);
    FileSystemPiattaforma::remove(percorso);
  }
  void rename(const std::string& da, const std::string& a) override {
    prova("rename", a);
    FileSystemPiattaforma::rename(da, a);
  }

 private:
  void prova(const char* operazione, const std::string& percorso) {
    if (!guasto_.scatta(Guasto::Dove::File, std::string(operazione) + " " + percorso)) return;
    throw FileError(kErrorPathAccess, "Il percorso non è accessibile.");
  }
  Guasto& guasto_;
};

class ImpostazioniGuaste : public Settings {
 public:
  ImpostazioniGuaste(Settings& vere, Guasto& guasto) : vere_(vere), guasto_(guasto) {}
  std::string get(std::string_view applicazione, std::string_view sezione, std::string_view nome,
                  std::string_view altrimenti) override {
    return vere_.get(applicazione, sezione, nome, altrimenti);
  }
  void set(std::string_view applicazione, std::string_view sezione, std::string_view nome,
           std::string_view valore) override {
    prova("set");
    vere_.set(applicazione, sezione, nome, valore);
  }
  void deleteSection(std::string_view applicazione, std::string_view sezione) override {
    prova("deleteSection");
    vere_.deleteSection(applicazione, sezione);
  }

 private:
  void prova(const char* operazione) {
    if (!guasto_.scatta(Guasto::Dove::Impostazioni, operazione)) return;
    throw FileError(kErrorPathAccess, "Le impostazioni non si possono scrivere.");
  }
  Settings& vere_;
  Guasto& guasto_;
};

}  // namespace cu::test
