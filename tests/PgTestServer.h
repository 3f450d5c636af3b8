#pragma once
// Opens a connection to the throwaway PostgreSQL server that ctest starts for the
// *_pg_test programs, on a fresh database of the given name.

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <gtest/gtest.h>

inline QSqlDatabase OpenTestPostgres(const QString& connection, const QString& database) {
  const int port = QUIL_PG_PORT;
  auto open = [&](const QString& name, const QString& dbName) {
    QSqlDatabase db = QSqlDatabase::addDatabase("QPSQL", name);
    db.setHostName("127.0.0.1");
    db.setPort(port);
    db.setUserName("postgres");
    db.setDatabaseName(dbName);
    EXPECT_TRUE(db.open()) << db.lastError().text().toStdString();
    return db;
  };
  {
    QSqlDatabase admin = open(connection + "_admin", "postgres");
    QSqlQuery query(admin);
    query.exec("DROP DATABASE IF EXISTS " + database);
    EXPECT_TRUE(query.exec("CREATE DATABASE " + database)) << query.lastError().text().toStdString();
    admin.close();
  }
  QSqlDatabase::removeDatabase(connection + "_admin");
  return open(connection, database);
}
