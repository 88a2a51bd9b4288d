-- Create script of a company database for PostgreSQL 15. README.md tells the conventions and why each
-- index is there. Run it whole or not at all:
--   psql -1 -v ON_ERROR_STOP=1 -f postgresql.sql
--
-- The database has the encoding UTF8. Texts are compared byte by byte (COLLATE "C"), whatever the
-- database's own collation. Where trailing blanks do not count the type is bpchar without a length:
-- it keeps the blanks and ignores them in comparisons, keys, joins and groups; elsewhere it is
-- varchar, for which they count. Dates are whole seconds; those that statements compare refuse what
-- no client can hold: infinity, years before 100 and after 9999.
--
-- Written by scripts/generate.sh from the description in this folder; change that.

-- Stock documents

-- TRANNO is unique except when it is empty: a posting that was issued no number is stored under ''.
CREATE TABLE STKTRANHD(
  TRANNO    varchar(20) COLLATE "C" NOT NULL,
  TRANTYPE  varchar(20) COLLATE "C" NOT NULL,
  REFERENCE varchar(20) COLLATE "C",
  TRANDT    timestamp(0) CONSTRAINT TRANDT_IS_A_DATE CHECK(TRANDT BETWEEN '0100-01-01' AND '9999-12-31 23:59:59'),
  DEPTNOFR  bpchar COLLATE "C" CHECK(length(DEPTNOFR)<=20),
  DEPTNMFR  varchar(60) COLLATE "C",
  DEPTNOTO  bpchar COLLATE "C" CHECK(length(DEPTNOTO)<=20),
  DEPTNMTO  varchar(60) COLLATE "C",
  STATUS    varchar(20) COLLATE "C",
  STATUSSN  integer DEFAULT 0,
  STATUSBY  varchar(50) COLLATE "C",
  STATUSDT  timestamp(0),
  MAKEBY    varchar(50) COLLATE "C",
  NOTES     varchar(255) COLLATE "C",
  ADDBY     varchar(50) COLLATE "C",
  ADDDT     timestamp(0),
  EDITBY    varchar(50) COLLATE "C",
  EDITDT    timestamp(0)
);

-- No unique key: close documents and postings number every line 0.
CREATE TABLE STKTRANDT(
  TRANNO    varchar(20) COLLATE "C" NOT NULL,
  REFERENCE varchar(20) COLLATE "C",
  SN        integer,
  PARTNO    varchar(40) COLLATE "C" NOT NULL,
  REFPARTNO varchar(40) COLLATE "C",
  MONO      varchar(20) COLLATE "C",
  QTY       double precision,
  VQTY      double precision,
  UPRICE    double precision,
  NOTES     varchar(255) COLLATE "C",
  ADDBY     varchar(50) COLLATE "C",
  ADDDT     timestamp(0),
  EDITBY    varchar(50) COLLATE "C",
  EDITDT    timestamp(0)
);

CREATE TABLE STKSHIPNOTE(
  TRANNO     varchar(20) COLLATE "C" NOT NULL PRIMARY KEY,
  TRANTYPE   varchar(20) COLLATE "C",
  NOTEDT     timestamp(0),
  CARRIER    varchar(60) COLLATE "C",
  RECEIVEDBY varchar(60) COLLATE "C",
  NOTES      varchar(255) COLLATE "C",
  ADDBY      varchar(50) COLLATE "C",
  ADDDT      timestamp(0),
  EDITBY     varchar(50) COLLATE "C",
  EDITDT     timestamp(0)
);

-- Stocktaking

CREATE TABLE STKCHECKHD(
  CHECKNO  varchar(20) COLLATE "C" NOT NULL PRIMARY KEY,
  CHECKDT  timestamp(0) CONSTRAINT CHECKDT_IS_A_DATE CHECK(CHECKDT BETWEEN '0100-01-01' AND '9999-12-31 23:59:59'),
  DEPTNO   bpchar COLLATE "C" CHECK(length(DEPTNO)<=20),
  CHECKBY  varchar(50) COLLATE "C",
  STATUS   varchar(20) COLLATE "C",
  STATUSSN integer DEFAULT 0,
  STATUSBY varchar(50) COLLATE "C",
  STATUSDT timestamp(0),
  NOTES    varchar(255) COLLATE "C",
  ADDBY    varchar(50) COLLATE "C",
  ADDDT    timestamp(0),
  EDITBY   varchar(50) COLLATE "C",
  EDITDT   timestamp(0)
);

CREATE TABLE STKCHECKDT(
  CHECKNO  varchar(20) COLLATE "C" NOT NULL,
  PARTNO   varchar(40) COLLATE "C" NOT NULL,
  QTY      double precision,
  UPRICE   double precision,
  LOCATION varchar(20) COLLATE "C",
  NOTES    varchar(255) COLLATE "C",
  ADDBY    varchar(50) COLLATE "C",
  ADDDT    timestamp(0),
  EDITBY   varchar(50) COLLATE "C",
  EDITDT   timestamp(0),
  PRIMARY KEY(CHECKNO, PARTNO)
);

-- Month close and costing

CREATE TABLE STKCLOSEHD(
  CLOSEDT  timestamp(0) NOT NULL PRIMARY KEY CONSTRAINT CLOSEDT_IS_A_DATE CHECK(CLOSEDT BETWEEN '0100-01-01' AND '9999-12-31 23:59:59'),
  STATUS   varchar(20) COLLATE "C",
  STATUSSN integer DEFAULT 0,
  STATUSBY varchar(50) COLLATE "C",
  STATUSDT timestamp(0),
  MAKEBY   varchar(50) COLLATE "C",
  NOTES    varchar(255) COLLATE "C",
  ADDBY    varchar(50) COLLATE "C",
  ADDDT    timestamp(0),
  EDITBY   varchar(50) COLLATE "C",
  EDITDT   timestamp(0)
);

-- A missing MTYPESN is an error and not a number made up by the engine.
CREATE TABLE PARTCOSTSET(
  MTYPESN      integer NOT NULL PRIMARY KEY,
  MTYPENM      varchar(60) COLLATE "C",
  COSTMETHOD   integer DEFAULT 0,
  OVERHEADRATE double precision DEFAULT 0,
  STATUS       varchar(20) COLLATE "C",
  STATUSSN     integer DEFAULT 0,
  STATUSBY     varchar(50) COLLATE "C",
  STATUSDT     timestamp(0),
  NOTES        varchar(255) COLLATE "C",
  ADDBY        varchar(50) COLLATE "C",
  ADDDT        timestamp(0),
  EDITBY       varchar(50) COLLATE "C",
  EDITDT       timestamp(0)
);

-- Master data of the component

CREATE TABLE REVADDR(
  ADDRNO  varchar(20) COLLATE "C" NOT NULL PRIMARY KEY,
  ADDRNM  varchar(60) COLLATE "C",
  STREET  varchar(60) COLLATE "C",
  CITY    varchar(60) COLLATE "C",
  ZIPCODE varchar(20) COLLATE "C",
  COUNTRY varchar(60) COLLATE "C",
  CONTACT varchar(60) COLLATE "C",
  TEL     varchar(30) COLLATE "C",
  NOTES   varchar(255) COLLATE "C",
  ADDBY   varchar(50) COLLATE "C",
  ADDDT   timestamp(0),
  EDITBY  varchar(50) COLLATE "C",
  EDITDT  timestamp(0)
);

CREATE TABLE STKCONTROLLER(
  CONTROLLERNO varchar(20) COLLATE "C" NOT NULL PRIMARY KEY,
  CONTROLLERNM varchar(60) COLLATE "C",
  DEPTNO       bpchar COLLATE "C" CHECK(length(DEPTNO)<=20),
  TEL          varchar(30) COLLATE "C",
  EMAIL        varchar(60) COLLATE "C",
  NOTES        varchar(255) COLLATE "C",
  ADDBY        varchar(50) COLLATE "C",
  ADDDT        timestamp(0),
  EDITBY       varchar(50) COLLATE "C",
  EDITDT       timestamp(0)
);

-- The surrounding ERP, read only: master data

CREATE TABLE DEPARTS(
  DEPTNO  bpchar COLLATE "C" NOT NULL PRIMARY KEY CHECK(length(DEPTNO)<=20),
  DEPTNM  varchar(60) COLLATE "C",
  MANAGER varchar(50) COLLATE "C",
  NOTES   varchar(255) COLLATE "C"
);

CREATE TABLE PARTS(
  PARTNO      varchar(40) COLLATE "C" NOT NULL PRIMARY KEY,
  PARTNM      varchar(60) COLLATE "C",
  CATEGORYNO  varchar(20) COLLATE "C",
  COLORNO     varchar(20) COLLATE "C",
  COLORNM     varchar(30) COLLATE "C",
  UNITNM      varchar(20) COLLATE "C",
  MTYPESN     integer,
  PRICETYPESN integer,
  ADDBY       varchar(50) COLLATE "C",
  ADDDT       timestamp(0),
  EDITBY      varchar(50) COLLATE "C",
  EDITDT      timestamp(0)
);

-- The supplier number bears the table's own name, because documents are joined with "... =SUPPLIERS".
CREATE TABLE SUPPLIERS(
  SUPPLIERS  bpchar COLLATE "C" NOT NULL PRIMARY KEY CHECK(length(SUPPLIERS)<=20),
  SUPPLIERNM varchar(60) COLLATE "C",
  CITY       varchar(60) COLLATE "C",
  COUNTRY    varchar(60) COLLATE "C",
  TEL        varchar(30) COLLATE "C"
);

CREATE TABLE ASSMBOM(
  ASSMNO varchar(40) COLLATE "C" NOT NULL,
  SN     integer NOT NULL,
  PARTNO varchar(40) COLLATE "C" NOT NULL,
  ENGQTY double precision DEFAULT 0,
  URATE  double precision DEFAULT 1,
  WSRATE double precision DEFAULT 0,
  PRIMARY KEY(ASSMNO, SN)
);

-- The surrounding ERP, read only: orders

CREATE TABLE POHD(
  PONO       varchar(20) COLLATE "C" NOT NULL PRIMARY KEY,
  PODT       timestamp(0),
  SUPPLIERNO bpchar COLLATE "C" CHECK(length(SUPPLIERNO)<=20),
  STATUSSN   integer DEFAULT 0,
  NOTES      varchar(255) COLLATE "C",
  ADDBY      varchar(50) COLLATE "C",
  ADDDT      timestamp(0)
);

CREATE TABLE PODT(
  PONO      varchar(20) COLLATE "C" NOT NULL,
  SN        integer NOT NULL,
  PARTNO    varchar(40) COLLATE "C",
  POQTY     double precision DEFAULT 0,
  DEDUCTQTY double precision DEFAULT 0,
  UPRICE    double precision,
  DUEDT     timestamp(0),
  PRIMARY KEY(PONO, SN)
);

CREATE TABLE SOHD(
  SONO     varchar(20) COLLATE "C" NOT NULL PRIMARY KEY,
  SODT     timestamp(0),
  CUSTNO   varchar(20) COLLATE "C",
  STATUSSN integer DEFAULT 0,
  NOTES    varchar(255) COLLATE "C",
  ADDBY    varchar(50) COLLATE "C",
  ADDDT    timestamp(0)
);

CREATE TABLE SODTBOM(
  SONO   varchar(20) COLLATE "C" NOT NULL,
  SN     integer NOT NULL,
  PARTNO varchar(40) COLLATE "C",
  SOQTY  double precision DEFAULT 0,
  PRIMARY KEY(SONO, SN)
);

CREATE TABLE COHD(
  CONO     varchar(20) COLLATE "C" NOT NULL PRIMARY KEY,
  CODT     timestamp(0),
  PARTNO   varchar(40) COLLATE "C",
  PRODQTY  double precision DEFAULT 0,
  DEPTNO   bpchar COLLATE "C" CHECK(length(DEPTNO)<=20),
  STATUSSN integer DEFAULT 0,
  NOTES    varchar(255) COLLATE "C",
  ADDBY    varchar(50) COLLATE "C",
  ADDDT    timestamp(0)
);

CREATE TABLE CODETAIL(
  CONO       varchar(20) COLLATE "C" NOT NULL,
  SN         integer NOT NULL,
  PARTNO     varchar(40) COLLATE "C",
  COQTY      double precision DEFAULT 0,
  TEMPLETQTY double precision DEFAULT 0,
  PRIMARY KEY(CONO, SN)
);

-- Rights, document numbers, version

CREATE TABLE USERRIGHTS(
  USERID        varchar(50) COLLATE "C" NOT NULL,
  FUNCCODE      varchar(30) COLLATE "C" NOT NULL,
  CANINSERT     integer DEFAULT 0,
  CANUPDATE     integer DEFAULT 0,
  CANDELETE     integer DEFAULT 0,
  CANAPPROVED   integer DEFAULT 0,
  CANUNAPPROVED integer DEFAULT 0,
  CANCANCEL     integer DEFAULT 0,
  CANFINISHED   integer DEFAULT 0,
  OWNER         integer DEFAULT 0,
  PRIMARY KEY(USERID, FUNCCODE)
);

CREATE TABLE TABLEKEYS(
  SERIES varchar(40) COLLATE "C" NOT NULL PRIMARY KEY,
  LASTNO integer NOT NULL
);

-- One row: which version of this description the tables have.
CREATE TABLE TALLYRASCHEMA(
  VERSION integer NOT NULL
);

-- Indexes

CREATE UNIQUE INDEX STKTRANHD_KEY ON STKTRANHD(TRANNO) WHERE TRANNO<>'';
CREATE INDEX STKTRANHD_BY_NUMBER ON STKTRANHD(TRANNO, DEPTNOFR, TRANDT, TRANTYPE, DEPTNOTO, STATUSSN);
CREATE INDEX STKTRANHD_BY_SOURCE ON STKTRANHD(DEPTNOFR, TRANDT, TRANTYPE, TRANNO);
CREATE INDEX STKTRANHD_BY_TARGET ON STKTRANHD(DEPTNOTO, TRANTYPE, TRANDT, TRANNO);
CREATE INDEX STKTRANHD_BY_TYPE ON STKTRANHD(TRANTYPE, TRANDT, STATUSSN, TRANNO);
CREATE INDEX STKTRANDT_BY_NUMBER ON STKTRANDT(TRANNO, SN, PARTNO, QTY);
CREATE INDEX STKTRANDT_BY_PART ON STKTRANDT(PARTNO, TRANNO, QTY, UPRICE);
CREATE INDEX STKTRANDT_BY_REFERENCE ON STKTRANDT(REFERENCE, SN);

-- Version of these tables

INSERT INTO TALLYRASCHEMA(VERSION) VALUES(2);
