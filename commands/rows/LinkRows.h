#pragma once
#include "commands/rows/RowParts.h"

#include <array>

namespace tessa::CommandRows {

constexpr Command Shop(ToolName name, TextView caption, TextView keyword) {
    return {name, caption, u"Shop", keyword, u"", ByFamily{}};
}
constexpr Command Find(ToolName name, TextView caption, TextView keyword) {
    return {name, caption, u"Find", keyword, u"", ByFamily{}};
}

/// Links to shops and searches, and the boxes of the toolbars.
inline constexpr std::array kLinkRows{
    Shop(u"shpAirlineTickets"_tool, u"&Airline Tickets", u"airlinetickets"),
    Shop(u"shpAuctions"_tool, u"A&uctions", u"auctions"),
    Shop(u"shpAudioBooks"_tool, u"Au&dio Books", u"audiobooks"),
    Shop(u"shpBooks"_tool, u"&Books", u"book"),
    Shop(u"shpCars"_tool, u"&Cars", u"cars"),
    Shop(u"shpComputers"_tool, u"C&omputers", u"computers"),
    Shop(u"shpCreditCards"_tool, u"Cr&edit Cards", u"creditcards"),
    Shop(u"shpEventTickets"_tool, u"E&vent Tickets", u"eventtickets"),
    Shop(u"shpFlowers"_tool, u"&Flowers", u"flowers"),
    Shop(u"shpHomesLoans"_tool, u"&Homes && Loans", u"homesloans"),
    Shop(u"shpHotelReservations"_tool, u"Hotel Reservations", u"hotelreservations"),
    Shop(u"shpMagazines"_tool, u"&Magazines", u"magazines"),
    Shop(u"shpMusic"_tool, u"Mus&ic", u"cds"),
    Shop(u"shpSoftware"_tool, u"&Software", u"software"),
    Shop(u"shpSportingGoods"_tool, u"S&porting Goods", u"sportinggoods"),
    Shop(u"shpStocks"_tool, u"St&ocks", u"stocks"),
    Shop(u"shpSunglasses"_tool, u"Su&nglasses", u"sunglasses"),
    Shop(u"shpToys"_tool, u"&Toys", u"toys"),
    Shop(u"shpTravel"_tool, u"T&ravel", u"travel"),
    Shop(u"shpVideos"_tool, u"&Videos", u"videos"),
    Shop(u"shpHosting"_tool, u"&Web Site Hosting", u"hosting"),

    Find(u"fndWebSites"_tool, u"&Web Sites", u"websites"),
    Find(u"fndNewsgroups"_tool, u"&Newsgroups", u"newsgroups"),
    Find(u"fndPeople"_tool, u"&People", u"people"),
    Find(u"fndBusinesses"_tool, u"&Businesses", u"business"),
    Find(u"fndMaps"_tool, u"&Maps && Directions", u"maps"),
    Find(u"fndWeather"_tool, u"&Weather", u"weather"),
    Find(u"fndReference"_tool, u"&Reference", u"reference"),
    Find(u"fndStockQuotes"_tool, u"&Stock Quotes", u"stockquotes"),

    Command{u"mnuAddress"_tool, u"A&ddress", u"Address", u"The address of the page", u"", ToolKind::Label},
    Command{u"cboAddress"_tool, u"Address", u"Address", u"The address of the page", u"", ToolKind::Combo,
            Key{'L', kCtrl}},
    Command{u"mnuSearchLabel"_tool, u"Sea&rch", u"Search", u"Words to search for", u"", ToolKind::Label},
    Command{u"cboSearch"_tool, u"Search", u"Search", u"Words to search for", u"", ToolKind::Combo, Key{'K', kCtrl}},
};

} // namespace tessa::CommandRows
