#pragma once
// The word lists the demo database is made from.

#include <QStringList>
#include <vector>

namespace demo {

struct City {
  QString name;
  QString country;
};

struct Product {
  QString noun;
  QString category;
  int minPrice;
  int maxPrice;
};

inline const QStringList kFirstNames = {
    "Anna", "Ben", "Clara", "David", "Elena", "Felix", "Greta", "Hugo", "Ines", "Jonas",
    "Karin", "Lukas", "Maria", "Nils", "Olga", "Pablo", "Quinn", "Rosa", "Stefan", "Tara",
    "Ugo", "Vera", "Walter", "Xenia", "Yusuf", "Zoe", "Amir", "Björn", "Chloé", "Dmitri",
    "Émile", "Fatima", "Gustav", "Hana", "Ivan", "Jörg", "Kenji", "Lea", "Mateo", "Noor"};

inline const QStringList kLastNames = {
    "Andersen", "Baker", "Costa", "Dubois", "Eriksson", "Fischer", "García", "Horvat",
    "Ivanova", "Jansen", "Kowalski", "López", "Müller", "Novak", "O'Brien", "Petrov",
    "Quintero", "Rossi", "Schmidt", "Tanaka", "Ueda", "Varga", "Weber", "Xu", "Yilmaz",
    "Zimmermann", "Bergström", "Castellanos", "Dąbrowski", "Nakamura", "Okafor", "Sørensen"};

inline const std::vector<City> kCities = {
    {"Amsterdam", "Netherlands"}, {"Barcelona", "Spain"},     {"Berlin", "Germany"},
    {"Bordeaux", "France"},       {"Bratislava", "Slovakia"}, {"Brno", "Czechia"},
    {"Copenhagen", "Denmark"},    {"Dublin", "Ireland"},      {"Gdańsk", "Poland"},
    {"Graz", "Austria"},          {"Hamburg", "Germany"},     {"Helsinki", "Finland"},
    {"Kraków", "Poland"},         {"Lisbon", "Portugal"},     {"Ljubljana", "Slovenia"},
    {"Lyon", "France"},           {"Madrid", "Spain"},        {"Milan", "Italy"},
    {"Munich", "Germany"},        {"Oslo", "Norway"},         {"Porto", "Portugal"},
    {"Prague", "Czechia"},        {"Riga", "Latvia"},         {"Rotterdam", "Netherlands"},
    {"Stockholm", "Sweden"},      {"Tallinn", "Estonia"},     {"Turin", "Italy"},
    {"Valencia", "Spain"},        {"Vienna", "Austria"},      {"Zürich", "Switzerland"}};

inline const QStringList kMailHosts = {"example.com", "example.org", "example.net", "mail.example"};

inline const QStringList kProductAdjectives = {
    "Classic", "Compact", "Deluxe", "Eco", "Heavy", "Light", "Mini", "Pro", "Smart", "Solid",
    "Travel", "Ultra", "Vintage", "Wide"};

inline const std::vector<Product> kProductKinds = {
    {"Desk Lamp", "Lighting", 15, 120},    {"Floor Lamp", "Lighting", 40, 300},
    {"Office Chair", "Furniture", 60, 600}, {"Bookshelf", "Furniture", 45, 400},
    {"Notebook", "Stationery", 2, 25},      {"Fountain Pen", "Stationery", 8, 180},
    {"Kettle", "Kitchen", 18, 90},          {"Coffee Grinder", "Kitchen", 25, 250},
    {"Backpack", "Travel", 30, 220},        {"Suitcase", "Travel", 70, 480},
    {"Headphones", "Electronics", 20, 400}, {"Keyboard", "Electronics", 15, 200},
    {"Monitor Arm", "Electronics", 35, 180}, {"Blanket", "Home", 20, 140},
    {"Plant Pot", "Home", 5, 60},           {"Rain Jacket", "Clothing", 40, 260}};

inline const QStringList kStatuses = {"New", "Confirmed", "Shipped", "Shipped", "Delivered",
                                      "Delivered", "Delivered", "Returned"};

inline const std::vector<int> kDiscounts = {5, 10, 15, 20};

inline const QStringList kCustomerNotes = {
    "Prefers delivery in the morning.",
    "Ask for the purchasing department.\nInvoices go to the head office.",
    "Long-standing customer; offer the loyalty discount.",
    "Call before delivery: the gate is locked after 6 pm.",
    "VAT number checked in March.",
    "Payment by bank transfer only."};

inline const QStringList kOrderNotes = {
    "Gift wrap, please.",
    "Deliver to the side entrance.",
    "Part of the spring campaign.",
    "Customer asked for an express shipment.\nCharge the surcharge.",
    "Replacement for a damaged item."};

}  // namespace demo
