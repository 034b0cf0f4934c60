#include "disk/piccolo_disco_support.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fstream>
#include <stdexcept>

namespace cu::test {
namespace {

constexpr const char* kTanto = "size=256m,nr_inodes=100000";

// Gives this process its own mounts. Returns true at once when it already has them.
bool perConto() {
  static const bool riuscito = [] {
    const uid_t utente = ::getuid();
    const gid_t gruppo = ::getgid();
    if (::unshare(CLONE_NEWNS) != 0) {
      if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
      std::ofstream("/proc/self/setgroups") << "deny";
      std::ofstream("/proc/self/uid_map") << "0 " << utente << " 1";
      std::ofstream("/proc/self/gid_map") << "0 " << gruppo << " 1";
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
  }();
  return riuscito;
}

}  // namespace

bool diSpazio(const std::string& testo) {
  const auto dice = [&](const char* pezzo) { return testo.find(pezzo) != std::string::npos; };
  return dice("Spazio su disco esaurito") || dice("Il disco che contiene il database è pieno") ||
         dice("che sul disco ci sia spazio") || dice("Sul disco non c'è spazio") ||
         dice("Errore di lettura o scrittura sul file del database. Verificare il disco");
}

PiccoloDisco::PiccoloDisco() {
  montato_ = perConto() && monta(kTanto, 0);
  if (!montato_) impedimento_ = std::strerror(errno);
}

PiccoloDisco::~PiccoloDisco() {
  if (montato_) ::umount2(cartella().c_str(), MNT_DETACH);
}

bool PiccoloDisco::monta(const std::string& opzioni, unsigned long modo) const {
  return ::mount("piccolo", cartella().c_str(), "tmpfs", modo, opzioni.c_str()) == 0;
}

void PiccoloDisco::lascia(Risorsa risorsa, std::size_t quante) const {
  struct statvfs stato {};
  if (::statvfs(cartella().c_str(), &stato) != 0) throw std::runtime_error("statvfs");
  const bool pagine = risorsa == Risorsa::Pagine;
  const std::size_t usate = pagine ? (stato.f_blocks - stato.f_bfree) * stato.f_frsize
                                   : static_cast<std::size_t>(stato.f_files - stato.f_ffree);
  // A limit of zero would mean no limit.
  const std::string tutto = pagine ? "size=" + std::to_string(usate + quante * stato.f_frsize)
                                   : "nr_inodes=" + std::to_string(usate + quante);
  if (!monta(tutto, MS_REMOUNT)) throw std::runtime_error(std::string("remount: ") + std::strerror(errno));
}

void PiccoloDisco::libera() const {
  if (!monta(kTanto, MS_REMOUNT)) throw std::runtime_error(std::string("remount: ") + std::strerror(errno));
}

LimiteFile::LimiteFile(std::size_t byte) {
  std::signal(SIGXFSZ, SIG_IGN);  // the write fails instead; started programs inherit this
  ::getrlimit(RLIMIT_FSIZE, &prima_);
  rlimit limite = prima_;
  limite.rlim_cur = byte;
  if (::setrlimit(RLIMIT_FSIZE, &limite) != 0) throw std::runtime_error("setrlimit");
}

LimiteFile::~LimiteFile() { ::setrlimit(RLIMIT_FSIZE, &prima_); }

}  // namespace cu::test
