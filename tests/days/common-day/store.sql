INSERT INTO Options (NextVoucherNo, DeptNo, CreditToOrder, GrossPrices, StockNo, SalesAccount,
    DefaultVATCode, Long1, CashAccount, BankAccount, IOUAccount, IOUName, Card1Account, Card1Name)
VALUES (3701, 2, 0, 1, 1, 3000, 3, 7740, 1900, 1920, 2905, 'Tilgodelapp', 1581, 'Bankkort');

INSERT INTO Tax (VatCode, Rate) VALUES (3, 25), (31, 15);

INSERT INTO Customers (ID, Name, Address1, PostalCode, PostalAddress, Phone, CustPrGr, EMail,
    Discount, Status)
VALUES ('1001', 'Ødegård Maskin AS', 'Bøgata 112', '3841', 'FLATDAL', '35536170', 2,
    'post@odegard.example', 2.5, 2),
    ('1002', 'Camilla Dahl', '', '', '', '', NULL, NULL, 0, 0);

INSERT INTO Products (ID, BarCode, Description, ProdPrGr, Price, CostPrice, Status)
VALUES ('P1', '7065260001405', 'Blåbærsyltetøy', 4, 49.9, 21.5, 1),
    ('P2', '', 'Kaffe', 2, 39.9, 20, 0);
