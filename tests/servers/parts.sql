-- SPDX-License-Identifier: GPL-2.0-or-later
-- The same tables, partitioned over two other servers.
CREATE EXTENSION postgres_fdw;
\set one :home '/one'
\set other :home '/other'
CREATE SERVER one FOREIGN DATA WRAPPER postgres_fdw OPTIONS (host :'one', dbname 'quakes', extensions 'postgis');
CREATE SERVER other FOREIGN DATA WRAPPER postgres_fdw OPTIONS (host :'other', dbname 'quakes', extensions 'postgis');
CREATE USER MAPPING FOR PUBLIC SERVER one OPTIONS (user 'owner', password_required 'false');
CREATE USER MAPPING FOR PUBLIC SERVER other OPTIONS (user 'owner', password_required 'false');

CREATE TABLE parts (LIKE rows) PARTITION BY RANGE (id);
CREATE FOREIGN TABLE parts_one PARTITION OF parts FOR VALUES FROM (1) TO (4)
  SERVER one OPTIONS (table_name 'low');
CREATE FOREIGN TABLE parts_other PARTITION OF parts FOR VALUES FROM (4) TO (100)
  SERVER other OPTIONS (table_name 'high');
-- QGIS numbers the rows of a table without a key of its own by their places, which repeat in the parts;
-- those of a view go by the key that is named.
CREATE VIEW seenparts AS SELECT * FROM parts;
CREATE TABLE manyparts (LIKE many) PARTITION BY RANGE (id);
CREATE FOREIGN TABLE manyparts_one PARTITION OF manyparts FOR VALUES FROM (1) TO (100001)
  SERVER one OPTIONS (table_name 'manylow');
CREATE FOREIGN TABLE manyparts_other PARTITION OF manyparts FOR VALUES FROM (100001) TO (1000000)
  SERVER other OPTIONS (table_name 'manyhigh');
GRANT SELECT ON ALL TABLES IN SCHEMA public TO student;
REVOKE ALL ON private FROM student;
