#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

// Sequential record files: the form of the study file, the snapshots and every data file.
// A record is one or more values separated by commas and ends with CR LF. A string is
// written between double quotes with no escaping at all, so it may hold commas and CR LF;
// numbers are bare with a point decimal; booleans are #TRUE# and #FALSE#.
// Files are Windows-1252 on disk.
namespace thermique {

QByteArray EncoderWindows1252(const QString &texte);
QString DecoderWindows1252(const QByteArray &octets);

// The bytes of a file, at most `maximum`: a data file is small, and a damaged one is never
// read without bound. Empty (and `ouvert` false) when it cannot be opened.
QByteArray LireFichier(const QString &chemin, qint64 maximum = 1 << 20, bool *ouvert = nullptr);
// Writes the whole file through a temporary one renamed over it only when complete.
bool EcrireFichier(const QString &chemin, const QByteArray &octets);

class RecordWriter
{
public:
    // Each call adds a value to the current record, with a comma before all but the first.
    RecordWriter &string(const QString &s);
    RecordWriter &integer(qint64 v);
    // Doubles as the program prints them (15 significant digits).
    RecordWriter &number(double v);
    // Singles keep 7 significant digits, as a 32-bit float is written.
    RecordWriter &single(float v);
    RecordWriter &boolean(bool v);
    // Ends the current record with CR LF (an empty record if nothing was added).
    RecordWriter &endRecord();

    // Shorthands for one-value records.
    void stringRecord(const QString &s) { string(s).endRecord(); }
    void integerRecord(qint64 v) { integer(v).endRecord(); }
    void booleanRecord(bool v) { boolean(v).endRecord(); }

    const QString &text() const { return m_texte; }
    QByteArray bytes() const { return EncoderWindows1252(m_texte); }

private:
    void separator();
    QString m_texte;
    bool m_debutRecord = true;
};

// Reads values one by one, as they were written. The first read that meets the end of
// the data or a value of the wrong kind sets the reader in failure: every later read fails
// too, so a caller can read a whole block and check ok() once.
class RecordReader
{
public:
    explicit RecordReader(const QByteArray &octetsWindows1252);
    explicit RecordReader(QString texte);

    bool ok() const { return !m_echec; }
    bool atEnd() const;

    // A string value, quoted or not.
    std::optional<QString> readString();
    // A number value (bare, or a quoted text that is a number).
    std::optional<double> readNumber();
    // A number rounded to an integer, refused beyond the given bounds.
    std::optional<qint64> readInteger(qint64 min = INT32_MIN, qint64 max = INT32_MAX);
    std::optional<bool> readBoolean();

    // Reads a string, or gives `defaut` (and enters failure) at the end.
    QString string(const QString &defaut = {}) { return readString().value_or(defaut); }
    qint64 integer(qint64 defaut = 0) { return readInteger().value_or(defaut); }
    double number(double defaut = 0) { return readNumber().value_or(defaut); }
    bool boolean(bool defaut = false) { return readBoolean().value_or(defaut); }

    // Position in characters, for diagnostics.
    qsizetype position() const { return m_pos; }

private:
    // The next field's raw text and whether it was quoted; nullopt at the end.
    struct Champ
    {
        QStringView texte;
        bool guillemets = false;
    };
    std::optional<Champ> nextField();
    void skipDelimiter();
    QString m_texte;
    qsizetype m_pos = 0;
    bool m_echec = false;
};

} // namespace thermique
