#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lettura/caselle.h"
#include "lettura/celle_riga.h"
#include "lettura/congruenza.h"
#include "lettura/esame.h"
#include "lettura/segnalatore.h"
#include "lettura/testate.h"

namespace cu::lettura {

// Reads the lines of one file in their order.
class Esaminatore {
 public:
  // Without `modello` the files decide.
  Esaminatore(const Luoghi* luoghi, Ascoltatore* ascoltatore, const modello::Modello* modello)
      : segnala_(esito_.rilievi), ascoltatore_(ascoltatore), dato_(modello), congruenza_(luoghi) {}
  void riga(const Riga& riga);
  Esito fine(std::uint64_t byteLetti);

 private:
  // What the last line was, as far as the order of records goes. An unreadable line may be any of them.
  enum class Dopo : std::uint8_t { Inizio, A, B, D, H, Z, Ignoto };

  struct Agente {
    bool presente = false;
    bool affidabile = true;   // its line could be read
    bool codiceNoto = false;  // otherwise the first certificate gives it
    bool confermato = false;
    std::string codice;
    std::int64_t riga = 0;
    int dichiarate = -1;  // certificates; -1 where the field is no number
    int certificazioni = 0;
    int ultimo = 0;  // number of a certificate
    std::bitset<100000> visti;
    bool correttiva = false;                              // annulments or replacements are declared
    bool alSuoPosto = false;                              // a certificate of the declared kind was there
    std::vector<std::int64_t> fuori;                      // lines of others, as long as none was
    std::array<std::vector<std::int64_t>, 2> correzioni;  // lines of annulments, of replacements
    Sostituto sostituto;
  };
  struct Corrente {
    bool aperto = false;
    bool affidabile = true;
    bool testaIncerta = false;  // payee of the head and of the cell differ, and no record H has decided
    std::int64_t riga = 0;
    int numero = -1;
    int precedente = 0;  // number of the certificate before
    char operazione = ' ';
    std::string agente;
    std::string percipiente;  // of the head
    std::string daCella;
    Tratto cella;
    int moduli = 0;
    int ultimoModulo = 0;
    Certificato certificato;
  };

  // Bytes, width and end of a line; false where the line is not as wide as a record.
  bool caratteri(const Riga& riga);
  void larghezza(const Riga& riga);
  void byteStranieri(std::string_view testo);
  // False for a record A in the middle, which changes nothing.
  bool ordine(char record, const Riga& riga);
  void ignota(const Riga& riga, bool intera);

  void usaModello(const modello::Modello& modello);
  void scegliModello(std::string_view rigaB);
  void recordA(std::string_view riga);
  void recordB(std::string_view riga, bool affidabile);
  void recordD(std::string_view riga, bool affidabile);
  void recordH(std::string_view riga, bool affidabile);
  void recordZ(std::string_view riga, bool affidabile);

  void agenteDi(std::string_view testa);
  void percipienteDi(std::string_view riga);
  void numeroDi(std::string_view riga);
  void fuoriPosto(std::int64_t riga);
  void nonAnnunciate(std::size_t genere);
  void operazioneDi(std::string_view riga);
  void protocolloDi(std::string_view riga);
  void modulo(std::string_view riga);
  void confrontaConD(std::string_view riga);
  void decidiTesta(std::string_view percipiente);
  void numeroDelModulo(std::string_view riga);
  void importiAnnullati();
  void raccogliD(std::string_view riga);
  void raccogliH(std::string_view riga);
  void annunciaSostituto();

  void chiudiCertificato();
  void chiudiAgente();
  void confrontaOperazioni();
  void confrontaConteggi();
  void fineFile();

  Esito esito_;
  Segnalatore segnala_;
  Ascoltatore* ascoltatore_;
  const modello::Modello* dato_;
  const modello::Modello* modello_ = nullptr;  // in use
  Testate testate_;
  std::optional<std::int32_t> anno_;  // of the supply
  std::optional<Caselle> caselle_;
  CelleRiga celle_;
  Congruenza congruenza_;
  Dopo dopo_ = Dopo::Inizio;
  Agente agente_;
  Corrente corrente_;
  std::string riempita_;  // a line that is too short, filled with blanks
  std::int64_t ultimaRiga_ = 0;
  struct Fine {
    std::int64_t riga = 0;                     // 0 without a record Z
    std::array<std::int64_t, 6> dichiarati{};  // of kContati; -1 for what is no number
  };
  static constexpr std::string_view kContati = "BCDGHL";
  Fine zeta_;
  bool oltreZeta_ = false;  // something follows the first record Z
  std::size_t ignote_ = 0;  // lines that may be any record
  std::size_t ignoteDellAgente_ = 0;
  bool annunciato_ = false;
};

}  // namespace cu::lettura
