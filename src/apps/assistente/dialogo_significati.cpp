#include "apps/assistente/dialogo_significati.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "apps/strumenti/frase.h"
#include "desktop/table_commands.h"
#include "desktop/table_style.h"

namespace cu::assistente {

using strumenti::qs;

DialogoSignificati::DialogoSignificati(QWidget* parent, const intake::Colonna& colonna,
                                       const Significati& significati)
    : Dialogo(parent, QStringLiteral("significati"),
              QStringLiteral("Significati: %1").arg(qs(std::string(colonna.nome)))),
      prima_(significati),
      tabella_(new QTableWidget(static_cast<int>(significati.size()), 2, this)) {
  auto* const disposti = new QVBoxLayout(this);
  QString testo = QStringLiteral(
      "Accanto a ogni testo del file si scrive che cosa significa; dove non si scrive nulla vale com'è.");
  if (!colonna.ammessi.empty())
    testo += QStringLiteral(" Ammessi: %1.").arg(qs(std::string(colonna.ammessi)));
  disposti->addWidget(new strumenti::Frase(this, testo));
  tabella_->setHorizontalHeaderLabels({QStringLiteral("Nel file"), QStringLiteral("Significa")});
  tabella_->setAccessibleName(QStringLiteral("Significati dei testi del file"));
  desktop::styleRows(*tabella_);
  tabella_->setSelectionMode(QAbstractItemView::SingleSelection);
  tabella_->verticalHeader()->hide();
  tabella_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  tabella_->horizontalHeader()->setSectionsClickable(false);
  new desktop::TableCommands(*tabella_, {});
  for (int i = 0; i < tabella_->rowCount(); ++i) {
    const auto& [scritto, significato] = prima_[static_cast<std::size_t>(i)];
    auto* const fisso = new QTableWidgetItem(scritto.empty() ? QStringLiteral("(cella vuota)") : qs(scritto));
    fisso->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    tabella_->setItem(i, 0, fisso);
    tabella_->setItem(i, 1, new QTableWidgetItem(qs(significato)));
  }
  disposti->addWidget(tabella_, 1);
  auto* const pulsanti = new QDialogButtonBox(this);
  pulsanti->addButton(QStringLiteral("&Conferma"), QDialogButtonBox::AcceptRole);
  pulsanti->addButton(QStringLiteral("Annulla"), QDialogButtonBox::RejectRole);
  connect(pulsanti, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(pulsanti, &QDialogButtonBox::rejected, this, &QDialog::reject);
  disposti->addWidget(pulsanti);
  ricordaDimensione({520, 420});
  tabella_->setFocus();
  if (tabella_->rowCount() > 0) tabella_->setCurrentCell(0, 1);
}

Significati DialogoSignificati::significati() const {
  Significati scritti = prima_;
  for (int i = 0; i < tabella_->rowCount(); ++i) {
    scritti[static_cast<std::size_t>(i)].second = tabella_->item(i, 1)->text().trimmed().toStdString();
  }
  return scritti;
}

}  // namespace cu::assistente
