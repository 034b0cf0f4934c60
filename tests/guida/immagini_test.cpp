// The pictures of the guide: each in both looks, with numbered marks that are seen in it, and under it a
// legend with the same numbers.

#include <gtest/gtest.h>

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace cu::test {
namespace {

constexpr const char* kLooks[] = {"", "scuri/"};
constexpr int kBesideNumber = 6;  // pixels from a mark's centre: its disc, beside a number of one digit
constexpr int kRing = 9;          // its radius

QString picturesFolder() { return QStringLiteral(CU_GUIDA "/immagini/"); }

QStringList linesOf(const QString& name) {
  QFile file(name);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
  return QString::fromUtf8(file.readAll()).split(u'\n');
}

// The pictures named in the guide, each with the numbers of the list that follows it.
std::map<QString, std::vector<int>> legends() {
  static const QRegularExpression picture(QStringLiteral("^!\\[[^]]+\\]\\(immagini/(\\w+)\\.png\\)$"));
  static const QRegularExpression entry(QStringLiteral("^(\\d+)\\. \\S"));
  std::map<QString, std::vector<int>> found;
  std::vector<int>* legend = nullptr;
  for (const QString& line : linesOf(QStringLiteral(CU_GUIDA "/guida.md"))) {
    if (const auto named = picture.match(line); named.hasMatch()) {
      EXPECT_EQ(found.count(named.captured(1)), 0U) << line.toStdString() << " is named twice";
      legend = &found[named.captured(1)];
      continue;
    }
    const auto numbered = entry.match(line);
    if (legend != nullptr && numbered.hasMatch()) {
      legend->push_back(numbered.captured(1).toInt());
    } else if (!line.isEmpty() && !line.startsWith(QStringLiteral("   "))) {
      legend = nullptr;
    }
  }
  return found;
}

struct Mark {
  int number = 0;
  QPoint centre;
};

// The marks of the pictures of a look, as the tool that drew them has listed them.
std::map<QString, std::vector<Mark>> marks(const QString& look) {
  std::map<QString, std::vector<Mark>> found;
  const QStringList lines = linesOf(picturesFolder() + look + QStringLiteral("segni.csv"));
  EXPECT_EQ(lines.first(), QStringLiteral("immagine;numero;x;y"));
  for (const QString& line : lines.mid(1)) {
    if (line.isEmpty()) continue;
    const QStringList cells = line.split(u';');
    if (cells.size() != 4) {
      ADD_FAILURE() << line.toStdString();
      continue;
    }
    found[cells[0]].push_back({cells[1].toInt(), {cells[2].toInt(), cells[3].toInt()}});
  }
  return found;
}

double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
  const double a = luminance(one) + 0.05;
  const double b = luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

TEST(GuidePictures, AreThereInBothLooksAndAllNamed) {
  std::set<QString> named;
  for (const auto& [picture, numbers] : legends()) named.insert(picture);
  EXPECT_GE(named.size(), 20U);
  for (const char* look : kLooks) {
    std::set<QString> present;
    for (const QString& file :
         QDir(picturesFolder() + QLatin1String(look)).entryList({QStringLiteral("*.png")}, QDir::Files))
      present.insert(file.chopped(4));
    EXPECT_EQ(present, named) << "look: " << look;
  }
}

TEST(GuidePictures, HaveALegendWithTheNumbersOfTheirMarks) {
  for (const char* look : kLooks) {
    const auto drawn = marks(QLatin1String(look));
    const auto written = legends();
    EXPECT_EQ(drawn.size(), written.size()) << "look: " << look;
    for (const auto& [picture, numbers] : written) {
      ASSERT_EQ(drawn.count(picture), 1U) << look << picture.toStdString() << " has no marks";
      std::vector<int> shown;
      for (const Mark& mark : drawn.at(picture)) shown.push_back(mark.number);
      EXPECT_EQ(shown, numbers) << look << picture.toStdString();
      for (std::size_t i = 0; i < numbers.size(); ++i)
        EXPECT_EQ(numbers[i], static_cast<int>(i) + 1) << look << picture.toStdString();
    }
  }
}

// Where the list has a mark the picture has its disc, in one colour for the whole look, and a readable number
// on it.
TEST(GuidePictures, ShowTheirMarksWhereTheyAreListed) {
  for (const char* look : kLooks) {
    QColor disc;
    for (const auto& [picture, listed] : marks(QLatin1String(look))) {
      const QImage image(picturesFolder() + QLatin1String(look) + picture + QStringLiteral(".png"));
      ASSERT_FALSE(image.isNull()) << look << picture.toStdString();
      for (const Mark& mark : listed) {
        const auto where = look + picture.toStdString() + " " + std::to_string(mark.number);
        const QRect whole(mark.centre - QPoint(kRing, kRing), mark.centre + QPoint(kRing, kRing));
        ASSERT_TRUE(image.rect().contains(whole)) << where;
        const QColor left = image.pixelColor(mark.centre - QPoint(kBesideNumber, 0));
        if (!disc.isValid()) disc = left;
        EXPECT_EQ(left, disc) << where;
        EXPECT_EQ(image.pixelColor(mark.centre + QPoint(kBesideNumber, 0)), disc) << where;
        double number = 1;
        for (int x = -3; x <= 3; ++x) {
          for (int y = -4; y <= 4; ++y)
            number = std::max(number, contrast(image.pixelColor(mark.centre + QPoint(x, y)), disc));
        }
        EXPECT_GE(number, 4.5) << where;
      }
    }
  }
}

// Two marks are never on each other.
TEST(GuidePictures, KeepTheirMarksApart) {
  for (const char* look : kLooks) {
    for (const auto& [picture, listed] : marks(QLatin1String(look))) {
      for (std::size_t i = 0; i < listed.size(); ++i) {
        for (std::size_t j = i + 1; j < listed.size(); ++j) {
          const QPoint apart = listed[i].centre - listed[j].centre;
          EXPECT_GT(std::hypot(apart.x(), apart.y()), 2 * kRing) << look << picture.toStdString();
        }
      }
    }
  }
}

TEST(GuidePictures, AreOfOneSizeInBothLooksAndLight) {
  qint64 bytes = 0;
  for (const auto& [picture, numbers] : legends()) {
    const QString file = picture + QStringLiteral(".png");
    EXPECT_EQ(QImage(picturesFolder() + file).size(),
              QImage(picturesFolder() + QStringLiteral("scuri/") + file).size())
        << picture.toStdString();
    for (const char* look : kLooks) bytes += QFile(picturesFolder() + QLatin1String(look) + file).size();
  }
  EXPECT_LT(bytes, 1'600'000) << "the guide's pictures are part of every copy of the program";
}

}  // namespace
}  // namespace cu::test
