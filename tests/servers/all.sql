-- SPDX-License-Identifier: GPL-2.0-or-later
-- What every one of the throw-away servers holds: the rows of tests/contract/kinds, and who reads.
CREATE EXTENSION postgis;
CREATE ROLE student LOGIN;
CREATE ROLE hasty LOGIN;
ALTER ROLE hasty SET statement_timeout = '200ms';
CREATE ROLE single LOGIN CONNECTION LIMIT 1;
CREATE ROLE stranger LOGIN;

CREATE TABLE rows (
  id integer PRIMARY KEY,
  "NAME" text, "VAL" double precision, "CNT" integer, "BIG" bigint, "DAY" date, "Größe" integer,
  geom geometry(Point, 4326));
INSERT INTO rows VALUES
  (1, 'Alpha', 1.5, 1, 5000000000, '2020-02-29', 0, ST_SetSRID(ST_MakePoint(1, 1), 4326)),
  (2, 'beta', -9999, 2, 5000000001, '1999-12-31', 10, ST_SetSRID(ST_MakePoint(2, 1), 4326)),
  (3, 'O''Brien', 20.25, 2, 7, '2020-03-01', 20, ST_SetSRID(ST_MakePoint(3, 1), 4326)),
  (4, NULL, NULL, NULL, NULL, NULL, NULL, ST_SetSRID(ST_MakePoint(4, 1), 4326)),
  (5, 'Côte', 0, 3, -1, '2026-11-16', 40, ST_SetSRID(ST_MakePoint(5, 1), 4326)),
  (6, 'ALPHA', -0.5, 4, 12345678901, '2026-11-17', 50, ST_SetSRID(ST_MakePoint(6, 1), 4326)),
  (7, 'delta_x', 1.5, 1, 0, '1950-01-01', 60, ST_SetSRID(ST_MakePoint(7, 1), 4326)),
  (8, '50%', 33, 9, 3, '2000-06-15', 70, ST_SetSRID(ST_MakePoint(8, 1), 4326));
CREATE INDEX ON rows USING gist (geom);

-- Each type that a column may have, and values at their ends.
CREATE TABLE types (
  id bigint PRIMARY KEY, truth boolean, small smallint, whole integer, big bigint, single real,
  double double precision, exact numeric(12, 3), fixed character(6), free text, short varchar(5),
  day date, moment timestamp, zoned timestamptz, clock time, bytes bytea, list integer[],
  "say ""hi"" now" text, json jsonb, code uuid);
INSERT INTO types VALUES
  (1, true, -32768, -2147483648, -9007199254740993, 0.1, 0.1, 123456789.125, 'ab', '', 'ñandú',
   '0100-01-01', '2026-11-16 14:15:07.6', '2026-11-16 14:15:07+00', '23:59', '\x0001', '{1,2}',
   'x', '{"a": 1}', 'a0eebc99-9c0b-4ef8-bb6d-6bb9bd380a11'),
  (2, false, 32767, 2147483647, 9007199254740993, '-infinity', 'NaN', -0.001, 'abcdef', E'a\nb',
   '', '9999-12-31', '1899-12-29 06:00', '1969-12-31 23:59:59.5+00', '00:00', '', '{}', '', '1',
   NULL),
  (3, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'infinity', '-infinity', NULL,
   NULL, NULL, NULL, NULL, NULL, NULL);

-- For queries that mean harm, and for tables that change.
CREATE TABLE victim (id serial PRIMARY KEY, "MAG" double precision);
INSERT INTO victim ("MAG") SELECT i FROM generate_series(1, 100) i;
CREATE SEQUENCE counter;
CREATE FUNCTION harm() RETURNS integer LANGUAGE plpgsql AS
  'BEGIN DELETE FROM victim; RETURN 1; END';
-- One that looks like a known function for whole numbers.
CREATE FUNCTION abs(text) RETURNS integer LANGUAGE plpgsql AS
  'BEGIN DELETE FROM victim; RETURN 1; END';

-- Rows enough to be in the middle of them, with a text beside each number.
CREATE TABLE many AS
  SELECT i AS id, (i * 7919 % 1000) / 10.0::double precision AS "MAG", 'row ' || i % 100 AS "NAME"
  FROM generate_series(1, 200000) i;
ALTER TABLE many ADD PRIMARY KEY (id);
CREATE VIEW seen AS SELECT * FROM many WHERE id <= 1000;
CREATE TABLE keyless AS SELECT "MAG", "NAME" FROM many WHERE id <= 1000;
CREATE TABLE private AS SELECT * FROM rows;

GRANT SELECT ON rows, types, victim, many, seen, keyless TO student, hasty, single;
ANALYZE;

-- What of them lies in a partition.
CREATE TABLE low AS SELECT * FROM rows WHERE id < 4;
CREATE TABLE high AS SELECT * FROM rows WHERE id >= 4;
CREATE TABLE manylow AS SELECT * FROM many WHERE id <= 100000;
CREATE TABLE manyhigh AS SELECT * FROM many WHERE id > 100000;

-- Whose rows take a tenth of a second each.
CREATE VIEW slow AS SELECT id, "MAG" FROM many WHERE (id < 0 OR pg_sleep(0.1) IS NOT NULL);
GRANT SELECT ON slow TO hasty, single;
