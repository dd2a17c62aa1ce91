#pragma once

#include <QString>

#include <optional>

namespace thermique {

class UserInterface;

// The operation evaluator: the arithmetic text that a user types in a cell, such as
// "2.00*1.25-(0.88*1.08)*2", gives the value that the cell shows.

// Outcome of an evaluation: a value, or nothing with the message the user must see
// (empty when the failure is silent, as for an empty text).
struct ResultatCalcul
{
    std::optional<double> valeur;
    QString message;
};

// Normalises `expression` in place (the text that is evaluated is the normal form) and
// evaluates it, without showing anything.
ResultatCalcul EvaluerOperation(QString &expression);

// The evaluator as the sheets call it: a failure shows its message (stop icon, title
// " Thermique.") and gives an empty result. Never throws.
std::optional<double> Calculatrice(QString &expression, UserInterface &ui);

// Silent evaluation of plain arithmetic (digits, + - * / ( ) . , and blanks only).
// Returns false, with valeur 0, when the text is not such arithmetic or fails.
bool EvaluationSilencieuse(const QString &texte, double &valeur);

} // namespace thermique
