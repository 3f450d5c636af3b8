#pragma once
// The demo's database, made by a program rather than kept as a binary: customers,
// products, orders (with follow-ups as children of an earlier order) and order lines.
// The same seed gives the same content on every machine.

#include <QString>
#include <cstdint>

namespace demo {

struct GenerateOptions {
  int64_t orders = 5000;
  uint64_t seed = 20261122;
  // Order lines are written for at most this many orders, so that a database of
  // millions of orders for performance work is made in a minute, not an hour.
  int64_t ordersWithLines = 200000;
};

// Writes the tables into the open Qt SQL connection named connectionName (SQLite or
// PostgreSQL), replacing tables of the same names. Throws std::runtime_error on failure.
void GenerateDemoDatabase(const QString& connectionName, const GenerateOptions& options);

// A digest of every row of every table, in key order: equal content, equal digest.
QString DemoDatabaseChecksum(const QString& connectionName);

}  // namespace demo
