#include "records.h"

#include "nombres.h"

#include <QFile>
#include <QSaveFile>

#include <cmath>

namespace thermique {

namespace {

// Windows-1252 bytes 0x80 to 0x9F; the five unassigned bytes keep their C1 code point.
constexpr char16_t table80[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char encoderCaractere(char16_t u)
{
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF))
        return char(u);
    for (int i = 0; i < 32; ++i)
        if (table80[i] == u)
            return char(0x80 + i);
    return '?';
}

} // namespace

QByteArray EncoderWindows1252(const QString &texte)
{
    QByteArray octets(texte.size(), Qt::Uninitialized);
    char *p = octets.data();
    for (QChar c : texte)
        *p++ = encoderCaractere(c.unicode());
    return octets;
}

QString DecoderWindows1252(const QByteArray &octets)
{
    QString texte(octets.size(), Qt::Uninitialized);
    QChar *p = texte.data();
    for (char b : octets) {
        const auto u = static_cast<unsigned char>(b);
        *p++ = QChar(u >= 0x80 && u < 0xA0 ? table80[u - 0x80] : char16_t(u));
    }
    return texte;
}

QByteArray LireFichier(const QString &chemin, qint64 maximum, bool *ouvert)
{
    QFile f(chemin);
    const bool ok = f.open(QIODevice::ReadOnly);
    if (ouvert)
        *ouvert = ok;
    return ok ? f.read(maximum) : QByteArray();
}

bool EcrireFichier(const QString &chemin, const QByteArray &octets)
{
    QSaveFile f(chemin);
    return f.open(QIODevice::WriteOnly) && f.write(octets) == octets.size() && f.commit();
}

void RecordWriter::separator()
{
    if (!m_debutRecord)
        m_texte += QLatin1Char(',');
    m_debutRecord = false;
}

RecordWriter &RecordWriter::string(const QString &s)
{
    separator();
    m_texte += QLatin1Char('"');
    m_texte += s;
    m_texte += QLatin1Char('"');
    return *this;
}

RecordWriter &RecordWriter::integer(qint64 v)
{
    separator();
    m_texte += QString::number(v);
    return *this;
}

RecordWriter &RecordWriter::number(double v)
{
    separator();
    m_texte += TexteNombre(v);
    return *this;
}

RecordWriter &RecordWriter::single(float v)
{
    separator();
    // Seven significant digits are what a 32-bit float holds: 8.25 stays "8.25".
    QString t = QString::number(double(v), 'g', 7);
    const qsizetype e = t.indexOf(QLatin1Char('e'));
    if (e >= 0) {
        // "1e+20" is written "1E+20".
        QString exposant = t.mid(e + 2);
        while (exposant.size() < 2)
            exposant.prepend(QLatin1Char('0'));
        t = t.left(e) + QLatin1Char('E') + t.at(e + 1) + exposant;
    }
    m_texte += t;
    return *this;
}

RecordWriter &RecordWriter::boolean(bool v)
{
    separator();
    m_texte += v ? QStringLiteral("#TRUE#") : QStringLiteral("#FALSE#");
    return *this;
}

RecordWriter &RecordWriter::endRecord()
{
    m_texte += QLatin1String("\r\n");
    m_debutRecord = true;
    return *this;
}

RecordReader::RecordReader(const QByteArray &octetsWindows1252)
    : m_texte(DecoderWindows1252(octetsWindows1252))
{ }

RecordReader::RecordReader(QString texte)
    : m_texte(std::move(texte))
{ }

bool RecordReader::atEnd() const
{
    qsizetype p = m_pos;
    while (p < m_texte.size()) {
        const QChar c = m_texte.at(p);
        if (c != QLatin1Char(' ') && c != QLatin1Char('\t') && c != QLatin1Char('\r')
            && c != QLatin1Char('\n'))
            return false;
        ++p;
    }
    return true;
}

void RecordReader::skipDelimiter()
{
    // One comma, or one line end (CR LF, CR or LF), ends the field.
    const qsizetype n = m_texte.size();
    while (m_pos < n) {
        const QChar c = m_texte.at(m_pos);
        if (c == QLatin1Char(',')) {
            ++m_pos;
            return;
        }
        if (c == QLatin1Char('\r')) {
            ++m_pos;
            if (m_pos < n && m_texte.at(m_pos) == QLatin1Char('\n'))
                ++m_pos;
            return;
        }
        if (c == QLatin1Char('\n')) {
            ++m_pos;
            return;
        }
        ++m_pos;
    }
}

std::optional<RecordReader::Champ> RecordReader::nextField()
{
    if (m_echec)
        return std::nullopt;
    const qsizetype n = m_texte.size();
    while (m_pos < n
           && (m_texte.at(m_pos) == QLatin1Char(' ') || m_texte.at(m_pos) == QLatin1Char('\t')))
        ++m_pos;
    if (m_pos >= n) {
        m_echec = true;
        return std::nullopt;
    }
    Champ champ;
    if (m_texte.at(m_pos) == QLatin1Char('"')) {
        const qsizetype fin = m_texte.indexOf(QLatin1Char('"'), m_pos + 1);
        if (fin < 0) {
            // An unclosed string takes the rest of the data.
            champ.texte = QStringView(m_texte).mid(m_pos + 1);
            m_pos = n;
        } else {
            champ.texte = QStringView(m_texte).mid(m_pos + 1, fin - m_pos - 1);
            m_pos = fin + 1;
            skipDelimiter();
        }
        champ.guillemets = true;
        return champ;
    }
    qsizetype fin = m_pos;
    while (fin < n) {
        const QChar c = m_texte.at(fin);
        if (c == QLatin1Char(',') || c == QLatin1Char('\r') || c == QLatin1Char('\n'))
            break;
        ++fin;
    }
    champ.texte = QStringView(m_texte).mid(m_pos, fin - m_pos).trimmed();
    m_pos = fin;
    skipDelimiter();
    return champ;
}

std::optional<QString> RecordReader::readString()
{
    auto champ = nextField();
    if (!champ)
        return std::nullopt;
    return champ->texte.toString();
}

std::optional<double> RecordReader::readNumber()
{
    auto champ = nextField();
    if (!champ)
        return std::nullopt;
    const QStringView t = champ->texte;
    if (t.isEmpty())
        return 0.0;
    // Plain integers are most of a study file: read them without the general parser.
    if (t.size() < 16) {
        qsizetype i = 0;
        const bool negatif = t.front() == QLatin1Char('-');
        if (negatif)
            i = 1;
        qint64 entier = 0;
        bool chiffres = i < t.size();
        for (; i < t.size() && chiffres; ++i) {
            const char16_t u = t[i].unicode();
            if (u < '0' || u > '9')
                chiffres = false;
            else
                entier = entier * 10 + (u - '0');
        }
        if (chiffres)
            return double(negatif ? -entier : entier);
    }
    if (t == QLatin1String("#TRUE#"))
        return -1.0;
    if (t == QLatin1String("#FALSE#"))
        return 0.0;
    bool ok = false;
    const double v = t.toDouble(&ok);
    if (!ok || !std::isfinite(v)) {
        m_echec = true;
        return std::nullopt;
    }
    return v;
}

std::optional<qint64> RecordReader::readInteger(qint64 min, qint64 max)
{
    const auto v = readNumber();
    if (!v)
        return std::nullopt;
    // Conversion to an integer rounds half to even, as the file's own reader did.
    const double r = std::nearbyint(*v);
    if (r < double(min) || r > double(max)) {
        m_echec = true;
        return std::nullopt;
    }
    return qint64(r);
}

std::optional<bool> RecordReader::readBoolean()
{
    auto champ = nextField();
    if (!champ)
        return std::nullopt;
    const QStringView t = champ->texte;
    if (t == QLatin1String("#TRUE#"))
        return true;
    if (t == QLatin1String("#FALSE#"))
        return false;
    bool ok = false;
    const double v = t.toDouble(&ok);
    if (!ok) {
        m_echec = true;
        return std::nullopt;
    }
    return v != 0;
}

} // namespace thermique
