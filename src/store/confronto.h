#pragma once

#include <QByteArrayView>
#include <QString>

#include <vector>

namespace lokera {

/// Letters without regard to case. A statement may have been put into lower and then into upper case on its
/// way here; a letter and what becomes of it on that way are the same, one letter for one (so ß stays ß).
char32_t lettera_minuscola(char32_t c);
char32_t lettera_maiuscola(char32_t c);
QString minuscolo(QStringView testo);
QString maiuscolo(QStringView testo);

/// Order of two UTF-8 texts without regard to case: accented letters stand beside their plain ones, and
/// differ from them. Negative, 0 or positive.
int confronta(QByteArrayView a, QByteArrayView b);

/// Appends what decides a text's place in that order first: of two texts that differ in it, their bytes'
/// order is theirs. Of use where each of many texts is compared many times.
void aggiungi_chiave(QByteArray& chiavi, QByteArrayView testo);

/// The letters of a UTF-8 text, folded as above.
std::vector<char32_t> lettere_piegate(QByteArrayView utf8);

/// `like`: % stands for any run of letters, _ for one; nothing else is special.
bool somiglia(const std::vector<char32_t>& modello, QByteArrayView testo);

}  // namespace lokera
