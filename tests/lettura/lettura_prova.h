#pragma once

#include <algorithm>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "lettura/esame.h"

namespace cu::lettura::prova {

class TestoLetto : public Sorgente {
 public:
  explicit TestoLetto(std::string testo, std::size_t alla_volta = 70000)
      : testo_(std::move(testo)), alla_volta_(alla_volta) {}
  std::size_t leggi(char* dove, std::size_t quanti) override {
    const std::size_t n = std::min({quanti, alla_volta_, testo_.size() - letti_});
    std::memcpy(dove, testo_.data() + letti_, n);
    letti_ += n;
    return n;
  }

 private:
  std::string testo_;
  std::size_t alla_volta_;
  std::size_t letti_ = 0;
};

class DueLuoghi : public Luoghi {
 public:
  std::optional<bool> haNome(std::string_view catastale, std::string_view nome) const override {
    if (catastale == "L781") return nome == "Verona";
    if (catastale == "Z112") return nome == "Germania";
    return std::nullopt;
  }
};

// A file put together by positions, as the layout prints them; positions count from 1.
class FileDiProva {
 public:
  // `pubblicato`: record B of the forms from CU 2021 on.
  explicit FileDiProva(std::string codice = "CUR18", bool pubblicato = false) {
    std::string a = riga('A');
    metti(a, 16, codice);
    metti(a, 21, "01");
    metti(a, 23, "04123450233");
    righe.push_back(a);
    std::string b = riga('B');
    metti(b, 2, "04123450233");
    metti(b, 18, "00000001");
    metti(b, 74, "04711230587");
    metti(b, 91, "00");
    metti(b, 137, "BOTTEGA S.R.L.");
    metti(b, 197, "posta@bottega.example");
    metti(b, 297, "0451234");
    if (codice == "CUR15" || codice == "CUR16") {
      metti(b, 321, "BRTNNA68D52L781K");
      metti(b, 337, "01");
      metti(b, 383, "00000000000");
    } else if (pubblicato) {
      metti(b, 309, "00");
      metti(b, 311, "BRTNNA68D52L781K");
      metti(b, 327, "01");
      metti(b, 373, "00000000000");
      if (codice != "CUR21") metti(b, 527, "0");
    } else {
      metti(b, 309, "0");
      metti(b, 310, "BRTNNA68D52L781K");
      metti(b, 326, "01");
      metti(b, 372, "00000000000");
    }
    if (codice == "CUR15") metti(b, 394, "00000000");
    metti(b, 402, "00000000");
    metti(b, 410, "01");
    metti(b, 428, "1");
    metti(b, 429, "05032018");
    metti(b, 437, "0");
    righe.push_back(b);
  }

  // A certificate of one module; more cells and modules can be put behind it.
  FileDiProva& certificato(std::string_view codice = "RSSMRC71C08L781I", char operazione = ' ') {
    ++certificati_;
    std::string d = testa('D', 1, codice);
    metti(d, 47, std::string(17, '0'));
    metti(d, 64, "000000");
    if (operazione != ' ') {
      metti(d, 47, "18030612345678901");
      metti(d, 64, "000007");
      d[83] = operazione;
      metti(righe[1], operazione == 'A' ? 91 : 92, "1");
    }
    metti(d, 89, "0");
    celle(d, {{"DA001001", "04123450233"},
              {"DA001002", "BOTTEGA S.R.L."},
              {"DA001005", "VR"},
              {"DA002001", std::string(codice)},
              {"DA002002", "ROSSI"}});
    if (codice.size() == 16) {
      celle(d, {{"DA002003", "MARCO"},
                {"DA002004", "M"},
                {"DA002005", "        08031971"},
                {"DA002006", "Verona"},
                {"DA002007", "VR"}});
    }
    celle(d, {{"DA003001", "        05032018"}, {"DA003002", "               1"}});
    righe.push_back(d);
    percipiente_ = codice;
    if (operazione == 'A') return *this;
    return modulo({{"AU001001", "A"},
                   {"AU001004", amount("1234,50")},
                   {"AU001006", "               7"},
                   {"AU001007", amount("234,50")},
                   {"AU001008", amount("1000,00")},
                   {"AU001009", amount("200,00")}});
  }
  FileDiProva& modulo(const std::vector<std::pair<std::string, std::string>>& contenuto) {
    int numero = 1;
    for (std::size_t i = righe.size(); i-- > 0 && righe[i][0] == 'H';) ++numero;
    std::string h = testa('H', numero, percipiente_);
    celle(h, contenuto);
    righe.push_back(h);
    return *this;
  }
  FileDiProva& fine() {
    std::string z = riga('Z');
    metti(z, 16, "000000001000000000" + nove(conta('D')) + "000000000" + nove(conta('H')) + "000000000");
    righe.push_back(z);
    metti(righe[1], 402, otto(conta('D')));
    return *this;
  }

  std::string testo() const {
    std::string testo;
    for (const std::string& r : righe) testo += r + "\r\n";
    return testo;
  }
  Esito esamina(Ascoltatore* ascoltatore = nullptr) const { return esaminaTesto(testo(), ascoltatore); }
  static Esito esaminaTesto(const std::string& testo, Ascoltatore* ascoltatore = nullptr) {
    TestoLetto sorgente(testo);
    const DueLuoghi luoghi;
    return lettura::esamina(sorgente, &luoghi, ascoltatore);
  }

  static void metti(std::string& riga, std::size_t posizione, std::string_view testo) {
    riga.replace(posizione - 1, testo.size(), testo);
  }
  // The same on a line by its number.
  FileDiProva& metti(std::size_t numero, std::size_t posizione, std::string_view testo) {
    metti(righe.at(numero - 1), posizione, testo);
    return *this;
  }
  // Appends cells to those of a line.
  static void celle(std::string& riga, const std::vector<std::pair<std::string, std::string>>& contenuto) {
    for (const auto& [codice, valore] : contenuto) {
      std::size_t posto = 90;
      while (riga.substr(posto - 1, 24) != std::string(24, ' ')) posto += 24;
      metti(riga, posto, codice + valore);
    }
  }
  // The position of the first cell with the code.
  std::size_t posto(std::size_t numero, std::string_view codice) const {
    for (std::size_t posto = 90; posto < 1890; posto += 24) {
      if (righe.at(numero - 1).substr(posto - 1, 8) == codice) return posto;
    }
    throw std::runtime_error("the line has no cell " + std::string(codice));
  }
  FileDiProva& valore(std::size_t numero, std::string_view codice, std::string valore) {
    valore.resize(16, ' ');
    return metti(numero, posto(numero, codice) + 8, valore);
  }
  // Takes a cell out; those behind it move up.
  FileDiProva& togli(std::size_t numero, std::string_view codice) {
    std::string& riga = righe.at(numero - 1);
    const std::size_t inizio = posto(numero, codice) - 1;
    riga.erase(inizio, 24);
    riga.insert(1889 - 24, 24, ' ');
    return *this;
  }
  static std::string amount(std::string_view testo) {
    return std::string(16 - testo.size(), ' ') + std::string(testo);
  }

  std::vector<std::string> righe;

 private:
  static std::string riga(char record) {
    std::string riga(1898, ' ');
    riga[0] = record;
    riga[1897] = 'A';
    return riga;
  }
  std::string testa(char record, int modulo, std::string_view codice) const {
    std::string riga = FileDiProva::riga(record);
    metti(riga, 2, "04123450233");
    metti(riga, 18, otto(static_cast<std::size_t>(modulo)));
    metti(riga, 26, codice);
    metti(riga, 42, otto(certificati_).substr(3));
    return riga;
  }
  std::size_t conta(char record) const {
    return static_cast<std::size_t>(
        std::count_if(righe.begin(), righe.end(), [record](const std::string& r) { return r[0] == record; }));
  }
  static std::string otto(std::size_t n) {
    std::string testo = std::to_string(n);
    return std::string(8 - testo.size(), '0') + testo;
  }
  static std::string nove(std::size_t n) { return "0" + otto(n); }

  std::size_t certificati_ = 0;
  std::string percipiente_;
};

// "K03 4:114" for each finding.
inline std::vector<std::string> elenco(const Esito& esito) {
  std::vector<std::string> elenco;
  for (const Rilievo& r : esito.rilievi.ordinati()) {
    elenco.push_back(std::string(voce(r.regola).codice) + " " + std::to_string(r.riga) + ":" +
                     std::to_string(r.posizione));
  }
  return elenco;
}

using Elenco = std::vector<std::string>;

inline std::string amount(std::string_view testo) { return FileDiProva::amount(testo); }

// A single finding, at the line's first cell of that code.
inline Elenco di(const char* regola, std::size_t riga, const FileDiProva& file, std::string_view cella) {
  return {std::string(regola) + " " + std::to_string(riga) + ":" + std::to_string(file.posto(riga, cella))};
}

}  // namespace cu::lettura::prova
