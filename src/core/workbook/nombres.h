#pragma once

#include <QDate>
#include <QString>
#include <QTime>

// The number text of the workbook: every number in a cell is text with a point as decimal
// mark and the no-break space (U+00A0) as thousands mark, whatever the system locale.
// Every sheet formats and parses through these functions.
namespace thermique {

// The thousands mark of the session.
constexpr QChar SeparateurMilliers = QChar(0x00A0);

// Leading-number parse: blanks (space, tab, LF, CR) are skipped anywhere; an optional sign,
// digits, one point and an exponent (E or D) are read from the left, and the parse stops at
// the first other character. "&H" and "&O" prefixes read hexadecimal and octal.
// Empty or non-numeric text gives 0. Commas and U+00A0 stop the parse like any other
// character: use ValNombre for cell text that may be grouped.
double Val(const QString &texte);

// Val after removing U+00A0 and commas: the way a cell number is read back.
double ValNombre(const QString &texte);

// Floor, as the workbook's Int.
double Int(double valeur);

// The pattern language of the number formats: "0" and "#" digit placeholders, "." decimal
// point, a "," anywhere between integer placeholders turns on thousands grouping (U+00A0),
// other characters (a blank in "### ##0.00" included) are literals and stay where they stand.
// The value is rounded half away from zero at the pattern's number of decimals, on its
// 15-significant-digit decimal form. Surplus integer digits go in front of the first
// placeholder. An all-"#" integer part shows nothing for a zero integer part.
// A negative value gets "-" in front of the whole text, even when it rounds to zero
// ("-0.00"). A pattern with ";" sections uses the second for negatives (no "-" added) and
// the third for zero. An empty pattern, infinities and NaN give TexteNombre.
QString Format(double valeur, const QString &motif);

// A number as the program prints it without a pattern: up to 15 significant digits,
// point decimal, no leading blank, E notation from 1E+15 up and below 1E-4
// ("1E+15", "1E-05"). Infinities and NaN give "inf", "-inf" and "nan".
QString TexteNombre(double valeur);

// Date and time patterns: "yyyy", "yy", "mmmm", "mmm", "mm", "m", "dd", "d", "hh", "h",
// "nn", "n", "ss", "s" in either case, and "mm" or "m" after an hour token as minutes;
// other characters are literals. Month names are the
// French ones of the users' systems ("janv.", "févr.", ...).
QString FormatDate(const QDate &date, const QString &motif);
QString FormatHeure(const QTime &heure, const QString &motif);

} // namespace thermique
