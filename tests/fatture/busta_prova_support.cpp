#include "fatture/busta_prova_support.h"

#include <openssl/bio.h>
#include <openssl/cms.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509.h>

#include <memory>
#include <stdexcept>

namespace cu::fatture::prova {
namespace {

template <class T, void (*F)(T*)>
struct Rilascia {
  void operator()(T* cosa) const { F(cosa); }
};
using Chiave = std::unique_ptr<EVP_PKEY, Rilascia<EVP_PKEY, EVP_PKEY_free>>;
using Certificato = std::unique_ptr<X509, Rilascia<X509, X509_free>>;
using BustaCms = std::unique_ptr<CMS_ContentInfo, Rilascia<CMS_ContentInfo, CMS_ContentInfo_free>>;

struct LiberaBio {
  void operator()(BIO* bio) const { BIO_free_all(bio); }
};
using Flusso = std::unique_ptr<BIO, LiberaBio>;

void esigi(bool vero) {
  if (!vero) throw std::runtime_error("OpenSSL");
}

std::string contenutoDi(BIO* bio) {
  char* dati = nullptr;
  const long lunghezza = BIO_get_mem_data(bio, &dati);
  return {dati, static_cast<std::size_t>(lunghezza)};
}

struct Firmatario {
  Chiave chiave{EVP_EC_gen("P-256")};
  Certificato certificato{X509_new()};

  Firmatario() {
    esigi(chiave && certificato);
    X509* const x = certificato.get();
    ASN1_INTEGER_set(X509_get_serialNumber(x), 1);
    X509_gmtime_adj(X509_getm_notBefore(x), 0);
    X509_gmtime_adj(X509_getm_notAfter(x), 3600);
    X509_set_pubkey(x, chiave.get());
    X509_NAME* const nome = X509_get_subject_name(x);
    X509_NAME_add_entry_by_txt(nome, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("Prova"), -1,
                               -1, 0);
    X509_set_issuer_name(x, nome);
    esigi(X509_sign(x, chiave.get(), EVP_sha256()) > 0);
  }
};

std::string firma(const std::string& contenuto, unsigned opzioni, bool indefinita) {
  static const Firmatario firmatario;
  const Flusso dati(BIO_new_mem_buf(contenuto.data(), static_cast<int>(contenuto.size())));
  const Flusso uscita(BIO_new(BIO_s_mem()));
  const unsigned tutte = opzioni | CMS_BINARY | (indefinita ? CMS_STREAM : 0U);
  const BustaCms cms(
      CMS_sign(firmatario.certificato.get(), firmatario.chiave.get(), nullptr, dati.get(), tutte));
  esigi(cms != nullptr);
  if (indefinita) {
    esigi(i2d_CMS_bio_stream(uscita.get(), cms.get(), dati.get(), static_cast<int>(tutte)) == 1);
  } else {
    esigi(i2d_CMS_bio(uscita.get(), cms.get()) == 1);
  }
  return contenutoDi(uscita.get());
}

}  // namespace

std::string firmato(const std::string& contenuto, bool indefinita) { return firma(contenuto, 0, indefinita); }
std::string soloFirma(const std::string& contenuto) { return firma(contenuto, CMS_DETACHED, false); }

std::string base64(const std::string& byte, std::size_t colonne, const std::string& aCapo) {
  std::string esito(byte.size() / 3 * 4 + 8, '\0');
  const int lunghezza =
      EVP_EncodeBlock(reinterpret_cast<unsigned char*>(esito.data()),
                      reinterpret_cast<const unsigned char*>(byte.data()), static_cast<int>(byte.size()));
  esito.resize(static_cast<std::size_t>(lunghezza));
  if (colonne == 0) return esito;
  for (std::size_t i = colonne; i < esito.size(); i += colonne + aCapo.size()) esito.insert(i, aCapo);
  return esito;
}

std::string inPem(const std::string& busta) {
  return "-----BEGIN PKCS7-----\n" + base64(busta, 64) + "\n-----END PKCS7-----\n";
}

}  // namespace cu::fatture::prova
