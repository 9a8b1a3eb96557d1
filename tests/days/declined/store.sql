INSERT INTO Options (NextVoucherNo, DeptNo, CreditToOrder, GrossPrices, StockNo, SalesAccount,
    DefaultVATCode)
VALUES (88, 2, 0, 1, NULL, 3000, 3);

INSERT INTO Tax (VatCode, Rate) VALUES (3, 25);

INSERT INTO Customers (ID, Name, Status) VALUES ('1001', 'Ødegård Maskin AS', 1);
