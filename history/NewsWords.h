#pragma once
#include "base/Text.h"

#include <array>

namespace tessa {

/// Words of pages by which it is known what a number beside them is. Folded, in the languages that pages are written in
/// most; their plurals too where these are not made by an "s".
namespace NewsWords {

inline constexpr auto kMonths = std::to_array<TextView>({
    u"january",   u"february",  u"march",    u"april",    u"may",      u"june",       u"july",     u"august",
    u"september", u"october",   u"november", u"december", u"jan",      u"feb",        u"mar",      u"apr",
    u"jun",       u"jul",       u"aug",      u"sep",      u"sept",     u"oct",        u"nov",      u"dec",
    u"januar",    u"februar",   u"marz",     u"mai",      u"juni",     u"juli",       u"oktober",  u"dezember",
    u"okt",       u"dez",       u"janvier",  u"fevrier",  u"mars",     u"avril",      u"juin",     u"juillet",
    u"aout",      u"septembre", u"octobre",  u"novembre", u"decembre", u"enero",      u"febrero",  u"marzo",
    u"abril",     u"mayo",      u"junio",    u"julio",    u"agosto",   u"septiembre", u"octubre",  u"noviembre",
    u"diciembre", u"gennaio",   u"febbraio", u"aprile",   u"maggio",   u"giugno",     u"luglio",   u"settembre",
    u"ottobre",   u"dicembre",  u"januari",  u"februari", u"maart",    u"augustus",   u"janeiro",  u"fevereiro",
    u"marco",     u"maio",      u"junho",    u"julho",    u"setembro", u"outubro",    u"novembro", u"dezembro",
});

inline constexpr auto kDays = std::to_array<TextView>({
    u"monday",   u"tuesday",   u"wednesday", u"thursday", u"friday",     u"saturday", u"sunday",  u"mon",
    u"tue",      u"tues",      u"wed",       u"thu",      u"thur",       u"thurs",    u"fri",     u"sat",
    u"sun",      u"montag",    u"dienstag",  u"mittwoch", u"donnerstag", u"freitag",  u"samstag", u"sonnabend",
    u"sonntag",  u"lundi",     u"mardi",     u"mercredi", u"jeudi",      u"vendredi", u"samedi",  u"dimanche",
    u"lunes",    u"martes",    u"miercoles", u"jueves",   u"viernes",    u"sabado",   u"domingo", u"lunedi",
    u"martedi",  u"mercoledi", u"giovedi",   u"venerdi",  u"sabato",     u"domenica", u"maandag", u"dinsdag",
    u"woensdag", u"donderdag", u"vrijdag",   u"zaterdag", u"zondag",
});

/// They stand for a day or a time by themselves.
inline constexpr auto kMoments = std::to_array<TextView>({
    u"today",   u"yesterday", u"tonight", u"heute", u"gestern", u"hier", u"aujourd", u"hoy", u"ayer", u"oggi", u"ieri",
    u"vandaag", u"gisteren",  u"hoje",    u"ontem", u"am",      u"pm",   u"gmt",     u"utc", u"cet",  u"cest", u"uhr",
});

/// With one of them in the passage, a length of time tells how long ago something was.
inline constexpr auto kAgo = std::to_array<TextView>({
    u"ago",
    u"vor",
    u"hace",
    u"fa",
    u"geleden",
    u"atras",
    u"ha",
});
inline constexpr auto kSince = std::to_array<TextView>({
    u"depuis",
    u"since",
    u"seit",
    u"updated",
    u"posted",
    u"il y a",
});

inline constexpr auto kSpans = std::to_array<TextView>({
    u"s",       u"sec",     u"second",  u"m",        u"min",     u"minute", u"h",       u"hr",        u"hour",
    u"d",       u"day",     u"w",       u"week",     u"month",   u"mo",     u"y",       u"yr",        u"year",
    u"a",       u"an",      u"sekunde", u"sekunden", u"minuten", u"stunde", u"stunden", u"tag",       u"tagen",
    u"woche",   u"wochen",  u"monat",   u"monaten",  u"jahr",    u"jahren", u"seconde", u"heure",     u"jour",
    u"semaine", u"mois",    u"segundo", u"minuto",   u"hora",    u"dia",    u"semana",  u"mes",       u"meses",
    u"ano",     u"secondi", u"minuti",  u"ora",      u"ore",     u"giorno", u"giorni",  u"settimana", u"settimane",
    u"mese",    u"mesi",    u"anno",    u"anni",     u"moment",  u"just",   u"now",
});

/// What is counted beside a page's own words.
inline constexpr auto kCounted = std::to_array<TextView>({
    u"view",        u"comment",    u"reply",       u"replies",  u"like",      u"point",      u"vote",     u"share",
    u"user",        u"visitor",    u"people",      u"person",   u"member",    u"guest",      u"follower", u"subscriber",
    u"star",        u"fork",       u"watcher",     u"watching", u"reader",    u"read",       u"hit",      u"time",
    u"post",        u"topic",      u"message",     u"thread",   u"answer",    u"response",   u"download", u"reaction",
    u"retweet",     u"repost",     u"online",      u"viewing",  u"karma",     u"upvote",     u"review",   u"rating",
    u"visit",       u"impression", u"aufruf",      u"aufrufe",  u"kommentar", u"kommentare", u"antwort",  u"antworten",
    u"beitrag",     u"beitrage",   u"besucher",    u"leser",    u"mitglied",  u"mitglieder", u"gaste",    u"stimmen",
    u"bewertungen", u"vue",        u"commentaire", u"reponse",  u"membre",    u"visiteur",   u"lecture",  u"visita",
    u"comentario",  u"respuesta",  u"respuestas",  u"miembro",  u"voto",      u"commento",   u"commenti", u"risposte",
    u"visite",      u"reacties",
});

/// A passage that begins so, and is no longer than a line, is one.
inline constexpr auto kAdvertisements = std::to_array<TextView>({
    u"advertisement",
    u"advertisements",
    u"advertising",
    u"sponsored",
    u"anzeige",
    u"werbung",
    u"publicite",
    u"publicidad",
    u"pubblicita",
    u"advertentie",
    u"patrocinado",
    u"promoted",
});

} // namespace NewsWords

} // namespace tessa
