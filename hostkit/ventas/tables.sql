-- The tables of the sample database: a wholesaler that sells food abroad.
-- Names are what Spanish users write: accents, blanks, a composite key, a composite foreign key, a self reference.
CREATE TABLE Regiones (
    IdRegion INTEGER NOT NULL PRIMARY KEY,
    Region NVARCHAR(40) NOT NULL
);
CREATE TABLE Paises (
    Pais NVARCHAR(40) NOT NULL PRIMARY KEY,
    Codigo NVARCHAR(2) NOT NULL,
    IdRegion INTEGER NOT NULL,
    FOREIGN KEY (IdRegion) REFERENCES Regiones (IdRegion)
);
CREATE TABLE Territorios (
    IdTerritorio NVARCHAR(10) NOT NULL PRIMARY KEY,
    Territorio NVARCHAR(40) NOT NULL,
    IdRegion INTEGER NOT NULL,
    FOREIGN KEY (IdRegion) REFERENCES Regiones (IdRegion)
);
CREATE TABLE [Categorías] (
    [IdCategoría] INTEGER NOT NULL PRIMARY KEY,
    [Categoría] NVARCHAR(40) NOT NULL,
    [Descripción] LONGTEXT
);
CREATE TABLE Proveedores (
    IdProveedor INTEGER NOT NULL PRIMARY KEY,
    Nombre NVARCHAR(60) NOT NULL,
    Ciudad NVARCHAR(40),
    Pais NVARCHAR(40),
    [Teléfono] NVARCHAR(24),
    FOREIGN KEY (Pais) REFERENCES Paises (Pais)
);
CREATE TABLE Productos (
    IdProducto INTEGER NOT NULL PRIMARY KEY,
    Nombre NVARCHAR(60) NOT NULL,
    IdProveedor INTEGER,
    [IdCategoría] INTEGER,
    [Cantidad por unidad] NVARCHAR(30),
    PrecioUnitario DECIMAL(10,2) NOT NULL,
    Existencias SMALLINT NOT NULL,
    Suspendido BIT NOT NULL,
    Peso DOUBLE,
    FOREIGN KEY (IdProveedor) REFERENCES Proveedores (IdProveedor),
    FOREIGN KEY ([IdCategoría]) REFERENCES [Categorías] ([IdCategoría])
);
CREATE TABLE Empleados (
    IdEmpleado INTEGER NOT NULL PRIMARY KEY,
    Nombre NVARCHAR(30) NOT NULL,
    Apellidos NVARCHAR(40) NOT NULL,
    Cargo NVARCHAR(40) NOT NULL,
    IdJefe INTEGER,
    [Fecha de nacimiento] DATE,
    [Fecha de contratación] DATETIME NOT NULL,
    Sueldo DECIMAL(10,2) NOT NULL,
    Notas LONGTEXT,
    FOREIGN KEY (IdJefe) REFERENCES Empleados (IdEmpleado)
);
CREATE TABLE [Empleados y territorios] (
    IdEmpleado INTEGER NOT NULL,
    IdTerritorio NVARCHAR(10) NOT NULL,
    PRIMARY KEY (IdEmpleado, IdTerritorio),
    FOREIGN KEY (IdEmpleado) REFERENCES Empleados (IdEmpleado),
    FOREIGN KEY (IdTerritorio) REFERENCES Territorios (IdTerritorio)
);
CREATE TABLE Transportistas (
    IdTransportista INTEGER NOT NULL PRIMARY KEY,
    Nombre NVARCHAR(40) NOT NULL,
    [Teléfono] NVARCHAR(24)
);
CREATE TABLE [Líneas de envío] (
    [IdLínea] INTEGER NOT NULL PRIMARY KEY,
    IdTransportista INTEGER NOT NULL,
    [Descripción] NVARCHAR(60) NOT NULL,
    [Días de entrega] SMALLINT NOT NULL,
    Tarifa DECIMAL(10,2),
    FOREIGN KEY (IdTransportista) REFERENCES Transportistas (IdTransportista)
);
CREATE TABLE Clientes (
    IdCliente INTEGER NOT NULL PRIMARY KEY,
    Nombre NVARCHAR(60) NOT NULL,
    Contacto NVARCHAR(60),
    Ciudad NVARCHAR(40),
    Pais NVARCHAR(40) NOT NULL,
    Correo NVARCHAR(80),
    Alta DATETIME NOT NULL,
    [Límite de crédito] DECIMAL(10,2),
    Activo BIT NOT NULL,
    FOREIGN KEY (Pais) REFERENCES Paises (Pais)
);
CREATE TABLE Pedidos (
    IdPedido INTEGER NOT NULL PRIMARY KEY,
    IdCliente INTEGER NOT NULL,
    IdEmpleado INTEGER NOT NULL,
    [IdLínea] INTEGER,
    Fecha DATETIME NOT NULL,
    [Fecha de entrega] DATETIME,
    Importe DECIMAL(10,2) NOT NULL,
    Urgente BIT NOT NULL,
    Observaciones LONGTEXT,
    FOREIGN KEY (IdCliente) REFERENCES Clientes (IdCliente),
    FOREIGN KEY (IdEmpleado) REFERENCES Empleados (IdEmpleado),
    FOREIGN KEY ([IdLínea]) REFERENCES [Líneas de envío] ([IdLínea])
);
CREATE TABLE [Detalle de pedidos] (
    IdPedido INTEGER NOT NULL,
    IdProducto INTEGER NOT NULL,
    PrecioUnitario DECIMAL(10,2) NOT NULL,
    Cantidad SMALLINT NOT NULL,
    Descuento DOUBLE NOT NULL,
    PRIMARY KEY (IdPedido, IdProducto),
    FOREIGN KEY (IdPedido) REFERENCES Pedidos (IdPedido),
    FOREIGN KEY (IdProducto) REFERENCES Productos (IdProducto)
);
CREATE TABLE Devoluciones (
    [IdDevolución] INTEGER NOT NULL PRIMARY KEY,
    IdPedido INTEGER NOT NULL,
    IdProducto INTEGER NOT NULL,
    Fecha DATETIME NOT NULL,
    Cantidad SMALLINT NOT NULL,
    [¿Abonada?] BIT NOT NULL,
    Motivo LONGTEXT,
    FOREIGN KEY (IdPedido, IdProducto) REFERENCES [Detalle de pedidos] (IdPedido, IdProducto)
);
CREATE INDEX [Pedidos por cliente] ON Pedidos (IdCliente);
CREATE INDEX [Pedidos por fecha] ON Pedidos (Fecha);
CREATE INDEX [Detalle por producto] ON [Detalle de pedidos] (IdProducto);
